#include <gtest/gtest.h>

#include "apps/zolt-sim/adapter/faults.h"
#include "tests/unit/zolt-sim/complaint_of.h"

namespace zolt_sim {
namespace {

Fault parse(const std::string& text) {
    return parseFault(splitWords(text));
}

std::string reasonForFault(const std::string& text) {
    return complaintOf([&] { parse(text); });
}

TEST(FaultParser, KnowsEveryKind) {
    EXPECT_EQ(faultText(parse("silence")), "silence once");
    EXPECT_EQ(faultText(parse("delay 20")), "delay 20 once");
    EXPECT_EQ(faultText(parse("noise 01fF")), "noise 01 FF once");
    EXPECT_EQ(faultText(parse("truncate 2")), "truncate 2 once");
    EXPECT_EQ(faultText(parse("oversize 140")), "oversize 140 once");
    EXPECT_EQ(faultText(parse("length 80")), "length 80 once");
    EXPECT_EQ(faultText(parse("address 10")), "address 10 once");
    EXPECT_EQ(faultText(parse("answer 21 03 00 00")), "answer 21 03 00 00 once");
    EXPECT_EQ(faultText(parse("raw 00")), "raw 00 once");
}

TEST(FaultParser, KnowsTheFirstByteOfEachClass) {
    EXPECT_EQ(parse("class 1").bytes, Bytes{0x54});
    EXPECT_EQ(parse("class 2").bytes, Bytes{0x12});
    EXPECT_EQ(parse("class 3").bytes, Bytes{0x23});
    EXPECT_EQ(parse("class 4").bytes, Bytes{0x4E});
    EXPECT_EQ(parse("class 6").bytes, Bytes{0x42});
    EXPECT_EQ(faultText(parse("class 6")), "class 6 once");
}

TEST(FaultParser, TakesTheModifiersInAnyOrder) {
    EXPECT_EQ(faultText(parse("silence always for poll at e")), "silence at E for poll always");
    EXPECT_EQ(faultText(parse("silence at 3 once")), "silence at 3 once");
    EXPECT_EQ(faultText(parse("delay 5 12 times for check")), "delay 5 for check 12 times");
}

TEST(FaultParser, DistinguishesACountFromAByte) {
    const Fault fault = parse("raw 01 02 10 times at 3");
    EXPECT_EQ(fault.bytes, (Bytes{0x01, 0x02}));
    EXPECT_EQ(fault.times, 10U);
    EXPECT_EQ(fault.at, 3);
}

TEST(FaultParser, SaysWhatIsWrong) {
    EXPECT_EQ(reasonForFault(""), "the kind of fault is missing");
    EXPECT_EQ(reasonForFault("fire"), "unknown fault \"fire\"");
    EXPECT_EQ(reasonForFault("delay"), "delay takes milliseconds, 1 to 60000");
    EXPECT_EQ(reasonForFault("delay 60001"), "delay takes milliseconds, 1 to 60000");
    EXPECT_EQ(reasonForFault("truncate 0"), "truncate takes a number of bytes, 1 to 255");
    EXPECT_EQ(reasonForFault("length"), "length takes a hexadecimal byte");
    EXPECT_EQ(reasonForFault("length 100"), "length takes a hexadecimal byte, 00 to FF");
    EXPECT_EQ(reasonForFault("class 5"), "class takes 1, 2, 3, 4 or 6");
    EXPECT_EQ(reasonForFault("class"), "class takes 1, 2, 3, 4 or 6");
    EXPECT_EQ(reasonForFault("raw"), "raw takes 1 to 255 bytes of two hexadecimal digits");
    EXPECT_EQ(reasonForFault("raw 5 times"), "raw takes 1 to 255 bytes of two hexadecimal digits");
    EXPECT_EQ(reasonForFault("raw 0102 3"), "\"3\" is not expected here");
    EXPECT_EQ(reasonForFault("silence at"), "at takes an address");
    EXPECT_EQ(reasonForFault("silence at 10"), "at takes an address, 0 to F");
    EXPECT_EQ(reasonForFault("silence at 1 at 2"), "\"at\" is not expected here");
    EXPECT_EQ(reasonForFault("silence for lunch"),
              "for takes poll, output, discovery, check or config");
    EXPECT_EQ(reasonForFault("silence 0 times"), "times takes a number, 1 to 1000000");
    EXPECT_EQ(reasonForFault("silence once always"), "once, N times and always exclude each other");
    EXPECT_EQ(reasonForFault("silence twice"), "\"twice\" is not expected here");
}

}  // namespace
}  // namespace zolt_sim
