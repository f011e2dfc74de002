#include "apps/zolt-sim/cards/bus_file.h"

#include <gtest/gtest.h>

#include "tests/unit/zolt-sim/complaint_of.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

using Content = SlotSetup::Content;

std::string reasonForBus(const std::string& text) {
    return complaintOf([&] { parseBusText(text, "x.bus"); });
}

TEST(BusFile, SaysWhichCardIsWhere) {
    const BusLayout layout = parseBusText(
        "# a bus\n\n0 servo\n  a motor # in both cases\nB code 2a\r\nF silent\n", "x.bus");
    EXPECT_EQ(layout.slots[0].content, Content::kCard);
    EXPECT_EQ(layout.slots[0].code, 5);
    EXPECT_EQ(layout.slots[10].code, 6);
    EXPECT_EQ(layout.slots[11].content, Content::kCard);
    EXPECT_EQ(layout.slots[11].code, 0x2A);
    EXPECT_EQ(layout.slots[15].content, Content::kSilent);
    EXPECT_EQ(layout.slots[15].code, 0);
    EXPECT_EQ(layout.slots[1].content, Content::kEmpty);
    EXPECT_FALSE(layout.missingSilent);
}

TEST(BusFile, SaysWhetherEmptyAddressesAreAnswered) {
    EXPECT_TRUE(parseBusText("missing silent", "x.bus").missingSilent);
    EXPECT_FALSE(parseBusText("missing negative", "x.bus").missingSilent);
}

TEST(BusFile, MayBeEmpty) {
    for (const SlotSetup& slot : parseBusText("", "x.bus").slots) {
        EXPECT_EQ(slot.content, Content::kEmpty);
    }
}

TEST(BusFile, GivesAMistakeItsPlaceAndReason) {
    EXPECT_EQ(reasonForBus("# one\nG servo\n"),
              "x.bus:2: \"G\" is neither an address (0 to F) nor \"missing\"");
    EXPECT_EQ(reasonForBus("3\n"), "x.bus:1: the kind of the card is missing");
    EXPECT_EQ(
        reasonForBus("3 relay\n"),
        "x.bus:1: unknown kind of card \"relay\" (kinds: digital-output, digital-input, servo, "
        "motor, analogue-input, keymatrix, lcd, ir, code NN, silent)");
    EXPECT_EQ(reasonForBus("3 servo servo\n"), "x.bus:1: too many words after \"servo\"");
    EXPECT_EQ(reasonForBus("3 servo\n\n3 lcd\n"), "x.bus:3: address 3 is given a second time");
    EXPECT_EQ(reasonForBus("3 code\n"), "x.bus:1: code takes one hexadecimal number from 01 to FF");
    EXPECT_EQ(reasonForBus("3 code 00\n"),
              "x.bus:1: code takes one hexadecimal number from 01 to FF");
    EXPECT_EQ(reasonForBus("3 code 09\n"), "x.bus:1: code 09 is the kind lcd: write that name");
    EXPECT_EQ(reasonForBus("missing\n"), "x.bus:1: missing takes one word: negative or silent");
    EXPECT_EQ(reasonForBus("missing often\n"),
              "x.bus:1: missing takes one word: negative or silent");
}

TEST(BusFile, IsReadFromDisk) {
    const test::Folder folder;
    EXPECT_EQ(readBusFile(folder.write("good.bus", "E lcd\n")).slots[14].code, 9);
    const std::string bad = folder.write("bad.bus", "E lcd\nE\n");
    EXPECT_EQ(complaintOf([&] { readBusFile(bad); }), bad + ":2: address E is given a second time");
    const std::string none = folder.file("none.bus");
    EXPECT_EQ(complaintOf([&] { readBusFile(none); }), none + ": No such file or directory");
}

}  // namespace
}  // namespace zolt_sim
