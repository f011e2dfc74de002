#include <gtest/gtest.h>

#include "apps/zolt-sim/control/control.h"
#include "tests/unit/zolt-sim/complaint_of.h"

namespace zolt_sim {
namespace {

using Verb = Control::Verb;

std::string reasonForControl(const std::string& line) {
    return complaintOf([&] { parseControl(line); });
}

TEST(ControlParser, ReadsInputControls) {
    const Control press = parseControl("press 3 6");
    EXPECT_EQ(press.verb, Verb::kPress);
    EXPECT_EQ(press.address, 3);
    EXPECT_EQ(press.number, 6U);
    EXPECT_EQ(parseControl("release f 15").verb, Verb::kRelease);
    EXPECT_EQ(parseControl("release f 15").address, 15);

    const Control set = parseControl("set A 1 fB");
    EXPECT_EQ(set.verb, Verb::kSet);
    EXPECT_EQ(set.address, 10);
    EXPECT_EQ(set.number, 1U);
    EXPECT_EQ(set.value, 0xFB);
    EXPECT_EQ(parseControl("turn F 3 20").verb, Verb::kTurn);
    EXPECT_EQ(parseControl("key 8 5a").value, 0x5A);
}

TEST(ControlParser, ReadsTheOthers) {
    EXPECT_EQ(parseControl("show").address, std::nullopt);
    EXPECT_EQ(parseControl("show e").address, 14);
    EXPECT_EQ(parseControl("unplug").verb, Verb::kUnplug);
    EXPECT_EQ(parseControl("plug").path, "");
    EXPECT_EQ(parseControl("plug /dev/ttyUSB1").path, "/dev/ttyUSB1");
    EXPECT_EQ(parseControl("remove 3").verb, Verb::kRemove);
    EXPECT_EQ(parseControl("insert 3 lcd").slot.code, 9);
    EXPECT_EQ(parseControl("insert 3 code 2A").slot.code, 0x2A);
    EXPECT_EQ(parseControl("fault silence").fault.kind, Fault::Kind::kSilence);
    EXPECT_EQ(parseControl("faults").verb, Verb::kFaults);
    EXPECT_EQ(parseControl("faults clear").verb, Verb::kFaultsClear);
    EXPECT_EQ(parseControl("trace all").filter, TraceFilter::kAll);
    EXPECT_EQ(parseControl("help").verb, Verb::kHelp);
    EXPECT_EQ(parseControl("  quit ").verb, Verb::kQuit);
}

TEST(ControlParser, SaysWhatIsWrong) {
    EXPECT_EQ(reasonForControl(""), "the line is empty (help lists the controls)");
    EXPECT_EQ(reasonForControl("jump"), "unknown control \"jump\" (help lists the controls)");
    EXPECT_EQ(reasonForControl("PRESS 3 6"), "unknown control \"PRESS\" (help lists the controls)");
    EXPECT_EQ(reasonForControl("press 3"), "use: press A N");
    EXPECT_EQ(reasonForControl("press 3 6 7"), "use: press A N");
    EXPECT_EQ(reasonForControl("press G 6"), "\"G\" is not an address (0 to F)");
    EXPECT_EQ(reasonForControl("press 3 16"), "\"16\" is not an input (0 to 15)");
    EXPECT_EQ(reasonForControl("press 3 A"), "\"A\" is not an input (0 to 15)");
    EXPECT_EQ(reasonForControl("set 3 10 00"), "\"10\" is not a number from 0 to F");
    EXPECT_EQ(reasonForControl("turn F 3 100"), "\"100\" is not a byte (00 to FF)");
    EXPECT_EQ(reasonForControl("show 3 4"), "use: show [A]");
    EXPECT_EQ(reasonForControl("unplug now"), "use: unplug");
    EXPECT_EQ(reasonForControl("trace some"), "trace takes all, commands or none");
    EXPECT_EQ(reasonForControl("faults list"), "faults takes clear or nothing");
    EXPECT_EQ(reasonForControl("fault"),
              "use: fault KIND [ARG] [at A] [for REQUEST] [once|N times|always]");
    EXPECT_EQ(reasonForControl("fault fire"), "unknown fault \"fire\"");
    EXPECT_EQ(reasonForControl("insert 3 code"), "code takes one hexadecimal number from 01 to FF");
}

TEST(ControlParser, HelpNamesEveryControl) {
    const auto lines = controlHelp();
    EXPECT_EQ(lines.size(), 15U);
    EXPECT_EQ(lines.front(), "show [A] - the bus, or everything about card A");
}

}  // namespace
}  // namespace zolt_sim
