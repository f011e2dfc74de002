#include "apps/zolt-sim/control/control.h"

#include <gtest/gtest.h>

namespace zolt_sim {
namespace {

class ControlTest : public ::testing::Test {
  protected:
    ControlTest() {
        trace_.addSink([this](const std::string& line) { lines_.push_back(line); }, true);
    }

    ControlAnswer run(const std::string& line) {
        return runControl(line, {lock_, model_, faults_, trace_,
                                 [this](const std::string& path) { actions_ += "plug:" + path; },
                                 [this] { actions_ += "unplug"; }, [this] { actions_ += "quit"; }});
    }

    std::mutex lock_;
    BusModel model_{parseBusText("3 digital-input\n5 digital-output\nF analogue-input\n", "x.bus")};
    FaultList faults_;
    Trace trace_;
    std::vector<std::string> lines_;
    std::string actions_;
};

TEST_F(ControlTest, ChangesCardsAndTracesIt) {
    EXPECT_TRUE(run("press 3 6").ok());
    EXPECT_TRUE(run("turn F 3 20").ok());
    EXPECT_EQ(model_.answer({0x20, 3, 2}).answer, (Bytes{0x21, 3, 0x40, 0}));
    ASSERT_EQ(lines_.size(), 2U);
    EXPECT_TRUE(lines_[0].ends_with(" card 3 digital-input: 40 00")) << lines_[0];
    EXPECT_TRUE(lines_[1].ends_with(" card F analogue-input: 00 00 00 20 00 00")) << lines_[1];
    EXPECT_TRUE(run("release 3 6").ok());
    EXPECT_TRUE(run("set 3 1 7F").ok());
    EXPECT_EQ(run("show 3").lines, std::vector<std::string>{"3 digital-input: 00 7F"});
    EXPECT_TRUE(run("remove 3").ok());
    EXPECT_TRUE(run("insert 3 keymatrix").ok());
    EXPECT_TRUE(run("key 3 11").ok());
    EXPECT_EQ(run("show").lines.at(3), "3 keymatrix: 11");
}

TEST_F(ControlTest, ThatIsMalformedChangesNothing) {
    const auto before = model_.showAll();
    for (const char* line : {"", "press 3", "press 5 1", "set 3 2 00", "turn F 6 00", "key 3 1",
                             "insert 3 lcd", "remove 4", "fault fire", "trace maybe", "nonsense"}) {
        const ControlAnswer answer = run(line);
        EXPECT_FALSE(answer.ok()) << line;
        EXPECT_TRUE(answer.lines.empty()) << line;
    }
    EXPECT_EQ(model_.showAll(), before);
    EXPECT_TRUE(faults_.describe().empty());
    EXPECT_TRUE(lines_.empty());
    EXPECT_EQ(actions_, "");
}

TEST_F(ControlTest, MakesListsAndClearsFaults) {
    EXPECT_TRUE(run("fault silence at 3 2 times").ok());
    EXPECT_TRUE(run("fault delay 5").ok());
    EXPECT_EQ(run("faults").lines,
              (std::vector<std::string>{"silence at 3 2 times", "delay 5 once"}));
    EXPECT_TRUE(run("faults clear").ok());
    EXPECT_TRUE(run("faults").lines.empty());
}

TEST_F(ControlTest, PassesOnWhatTheBusItselfHasToDo) {
    run("unplug");
    run("plug");
    run("plug /dev/ttyUSB1");
    run("quit");
    EXPECT_EQ(actions_, "unplugplug:plug:/dev/ttyUSB1quit");
}

TEST_F(ControlTest, SetsWhatIsTraced) {
    run("trace none");
    run("press 3 6");
    EXPECT_TRUE(lines_.empty());
    run("trace all");
    run("press 3 7");
    EXPECT_EQ(lines_.size(), 1U);
}

TEST_F(ControlTest, AnswersInLinesWithAVerdict) {
    EXPECT_EQ(run("show 5").text(), "5 digital-output: FF FF\nok\n");
    EXPECT_EQ(run("press 3 6").text(), "ok\n");
    EXPECT_EQ(run("press").text(), "error: use: press A N\n");
    EXPECT_EQ(run("help").lines, controlHelp());
}

}  // namespace
}  // namespace zolt_sim
