#include "tests/unit/zolt-check/check_fixture.h"

namespace {

class Settings : public CheckFixture {
  protected:
    Lines percent(const std::string& value) { return inRoot("<Speed Percent=\"" + value + "\"/>"); }
    Lines level(const std::string& value) {
        return inRoot("<Debuglog Loglevel=\"" + value + "\"/>");
    }
};

TEST_F(Settings, PercentsInRangeAreFine) {
    for (const char* value : {"1", "50", "100", " 50", "+50", "050", "50 "}) {
        EXPECT_EQ(percent(value), Lines{}) << value;
    }
}

TEST_F(Settings, APercentBelow1) {
    EXPECT_EQ(percent("0"),
              Lines{"2:8: warning: Percent 0 is below 1: each pause lasts 5050 microseconds, "
                    "longer than at 1"});
    EXPECT_EQ(percent("-400"),
              Lines{"2:8: warning: Percent -400 is below 1: each pause lasts 25248 microseconds, "
                    "longer than at 1"});
    EXPECT_EQ(percent("fast"),
              Lines{"2:8: warning: Percent \"fast\" (counts as 0) is below 1: each pause lasts "
                    "5050 microseconds, longer than at 1"});
    // The pause is at the limit of 32 bits.
    EXPECT_EQ(percent("-99999999999"),
              Lines{"2:8: warning: Percent -99999999999 is below 1: each pause lasts 35 minutes, "
                    "longer than at 1"});
    EXPECT_EQ(percent(""),
              Lines{"2:8: warning: Percent \"\" (counts as 0) is below 1: each pause lasts 5050 "
                    "microseconds, longer than at 1"});
}

TEST_F(Settings, APercentAbove100) {
    EXPECT_EQ(percent("101"),
              Lines{"2:8: warning: Percent 101 is above 100: each pause lasts 71 minutes"});
    EXPECT_EQ(percent("200%"),
              Lines{"2:8: warning: Percent \"200%\" (counts as 200) is above 100: each pause "
                    "lasts 71 minutes"});
    // The pause is at the limit of 32 bits.
    EXPECT_EQ(percent("99999999999999999999"),
              Lines{"2:8: warning: Percent \"99999999999999999999\" (counts as "
                    "9223372036854775807) is above 100: each pause lasts 35 minutes"});
}

TEST_F(Settings, APercentWithRubbish) {
    EXPECT_EQ(
        percent("50%"),
        Lines{"2:8: warning: Percent \"50%\" counts as 50: the text after the number is ignored"});
}

TEST_F(Settings, ASpeedAfterInterfaces) {
    const std::string all = "<Interfaces>" + std::string(kCae) + kIo + kMon + "</Interfaces>";
    const auto read = [&](const std::string& children) {
        return findings("<ZOLTConfig>\n" + children + "</ZOLTConfig>");
    };
    const std::string unseen =
        "the interfaces above this Speed do not use it: they keep the speed that was set above "
        "them";
    EXPECT_EQ(read(all + "\n<Speed Percent=\"50\"/>"), Lines{"3:2: warning: " + unseen});
    EXPECT_EQ(read("<Speed Percent=\"20\"/>" + all + "\n<Speed Percent=\"50\"/>"),
              Lines{"3:2: warning: " + unseen});
    // A Speed between two elements: only the lower interfaces use it.
    EXPECT_EQ(read("<Interfaces>" + std::string(kCae) + kIo +
                   "</Interfaces>\n<Speed Percent=\"50\"/>\n<Interfaces><I Name=\"MON\" "
                   "Port=\"4003\"/><I Name=\"IO\" Port=\"4002\"/></Interfaces>")
                  .front(),
              "3:2: warning: " + unseen);
    // There are no interfaces above, or the speed is the same.
    EXPECT_EQ(inRoot("<Interfaces/><Speed Percent=\"50\"/>"),
              Lines{"3:2: warning: \"Interfaces\" is repeated (first in line 2): each entry starts "
                    "with the values of the earlier entry in the same position"});
    EXPECT_EQ(read(all + "\n<Speed Percent=\"1\"/>"), Lines{});
}

TEST_F(Settings, LevelsBelow2AreFine) {
    for (const char* value : {"0", "1", "-7"}) {
        EXPECT_EQ(level(value), Lines{}) << value;
    }
}

TEST_F(Settings, ALevelOf2AndMore) {
    EXPECT_EQ(level("2"),
              Lines{"2:11: warning: Loglevel 2 writes nothing and uses up one open file per "
                    "message: use 0 or 1"});
    EXPECT_EQ(level("3x"),
              Lines{"2:11: warning: Loglevel \"3x\" (counts as 3) writes nothing and uses up one "
                    "open file per message: use 0 or 1"});
}

TEST_F(Settings, ALevelThatIsNoNumber) {
    EXPECT_EQ(level("debug"),
              Lines{"2:11: warning: Loglevel \"debug\" counts as 0: it is not a number"});
    EXPECT_EQ(level(""), Lines{"2:11: warning: Loglevel \"\" counts as 0: it is not a number"});
    EXPECT_EQ(
        level("1,5"),
        Lines{"2:11: warning: Loglevel \"1,5\" counts as 1: the text after the number is ignored"});
    EXPECT_EQ(level("4294967297"),
              Lines{"2:11: warning: Loglevel \"4294967297\" counts as 1: it is too large"});
}

TEST_F(Settings, Actions) {
    for (const char* value : {"TRUE", "True", "true", "FALSE", "False", "false"}) {
        EXPECT_EQ(inRoot("<AutoDiscover Action=\"" + std::string(value) + "\"/>"), Lines{});
    }
    for (const std::string value : {"yes", "1", "TRUE ", "tRUE", "", "0"}) {
        EXPECT_EQ(inRoot("<InitPollState Action=\"" + value + "\"/>"),
                  Lines{"2:16: warning: Action \"" + value +
                        "\" is not TRUE, True or true: it counts as FALSE"});
    }
}

TEST_F(Settings, ARelativeLogFile) {
    EXPECT_EQ(inRoot("<Debuglog File=\"zolt.log\"/>"),
              Lines{"2:11: warning: File \"zolt.log\" is a relative path: it starts in the folder "
                    "where zolt is started"});
}

TEST_F(Settings, NoLogFileIsFine) {
    EXPECT_EQ(inRoot(""), Lines{});
    EXPECT_EQ(inRoot("<Debuglog File=\"\"/>"), Lines{});
}

}  // namespace
