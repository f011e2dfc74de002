#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "tests/unit/bus/link_fixture.h"

namespace {

using Paths = std::list<std::string>;
using LinkState = SERIAL_INTERFACE::LinkState;

Paths pathsIn(std::string listing) {
    if (listing.empty()) {
        std::FILE* empty = std::fopen("/dev/null", "r");
        const Paths paths = devicePathsIn(empty);
        std::fclose(empty);
        return paths;
    }
    std::FILE* file = ::fmemopen(listing.data(), listing.size(), "r");
    const Paths paths = devicePathsIn(file);
    std::fclose(file);
    return paths;
}

TEST(DeviceList, TakesTheListingsOrder) {
    EXPECT_EQ(pathsIn("ttyUSB0\nttyUSB2\nttyUSB1\n"),
              (Paths{"/dev/ttyUSB0", "/dev/ttyUSB2", "/dev/ttyUSB1"}));
}

TEST(DeviceList, TakesEightCharactersWhole) {
    EXPECT_EQ(pathsIn("ttyUSB10\nttyUSB2\n"), (Paths{"/dev/ttyUSB10", "/dev/ttyUSB2"}));
}

TEST(DeviceList, AnEmptyListingNamesNoDevice) {
    EXPECT_EQ(pathsIn(""), Paths{});
}

TEST(DeviceList, NineCharactersMakeTwoWrongPaths) {
    EXPECT_EQ(pathsIn("ttyUSB100\n"), (Paths{"/dev/ttyUSB10", "/dev/"}));
}

TEST(DeviceList, LongerNamesAreSplitEveryNineCharacters) {
    EXPECT_EQ(pathsIn("ttyUSB1000\nttyUSB0\n"), (Paths{"/dev/ttyUSB10", "/dev/0", "/dev/ttyUSB0"}));
    EXPECT_EQ(pathsIn("ttyUSB-of-the-left-rack\n"),
              (Paths{"/dev/ttyUSB-o", "/dev/-the-lef", "/dev/-rack"}));
}

TEST(DeviceList, AMissingLineEndStillCostsTheLastCharacter) {
    EXPECT_EQ(pathsIn("ttyUSB0"), Paths{"/dev/ttyUSB"});
}

class SetUpOfThePort : public LinkFixture {
  protected:
    std::string tryLine() const { return "[INF] try to catch hardware on " + portPath_; }
    std::string foundLine(const std::string& version) const {
        return "[INF] hardware found on " + portPath_ + " version: " + version;
    }
};

TEST_F(SetUpOfThePort, FindsTheControllerAndItsVersion) {
    line_.answer(kHardwareAnswer);
    build(line_.path());
    EXPECT_EQ(line_.takeWrites(), Texts{kHardwareRequest});
    EXPECT_EQ(logged(), (Texts{tryLine(), foundLine("1.04")}));
    EXPECT_EQ(link_->linkState(), LinkState::kReady);
}

TEST_F(SetUpOfThePort, MakesTheLineRawAt460800Baud) {
    line_.answer(kHardwareAnswer);
    build(line_.path());
    const termios settings = line_.settings();
    EXPECT_EQ(cfgetospeed(&settings), static_cast<speed_t>(B460800));
    EXPECT_EQ(cfgetispeed(&settings), static_cast<speed_t>(B460800));
    EXPECT_EQ(settings.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
    EXPECT_EQ(settings.c_cflag & (CREAD | CLOCAL), static_cast<tcflag_t>(CREAD | CLOCAL));
    EXPECT_EQ(settings.c_cflag & (PARENB | PARODD | CSTOPB | CRTSCTS), 0U);
    EXPECT_EQ(settings.c_iflag & (IGNBRK | IXON | IXOFF | IXANY | ICRNL | INLCR | ISTRIP), 0U);
    EXPECT_EQ(settings.c_oflag, 0U);
    EXPECT_EQ(settings.c_lflag, 0U);
    EXPECT_EQ(settings.c_cc[VMIN], 0);
    EXPECT_EQ(settings.c_cc[VTIME], 50);
}

struct Version {
    const char* answer;
    const char* text;
};

class VersionText : public SetUpOfThePort, public testing::WithParamInterface<Version> {};

TEST_P(VersionText, IsWhatFollowsTheStatusByte) {
    line_.answer(GetParam().answer);
    build(line_.path());
    EXPECT_EQ(logged(), (Texts{tryLine(), foundLine(GetParam().text)}));
    EXPECT_EQ(link_->linkState(), LinkState::kReady);
}

INSTANTIATE_TEST_SUITE_P(SetUpOfThePort, VersionText,
                         testing::Values(Version{"07 06 31 2E 30 34 78 79", "1.04"},
                                         Version{"03 06 31 2E", "1."}, Version{"01 06", ""},
                                         Version{"01 00", ""}, Version{"05 06 31 00 30 34", "1"},
                                         Version{"05 51 20 7E 80 FF", " ~\x80\xFF"}));

TEST_F(SetUpOfThePort, SilenceLeavesAGivenPortUnderTestForGood) {
    build(line_.path());
    EXPECT_EQ(line_.readsSinceWrite(), 300000);
    EXPECT_EQ(logged(), (Texts{tryLine(), timeoutLine()}));
    EXPECT_EQ(link_->linkState(), LinkState::kUnderTest);
    EXPECT_EQ(pauses_.take(), std::vector<int>{2});
    line_.takeWrites();

    queue(3, "20 03 02");
    EXPECT_TRUE(link_->OnTask());
    EXPECT_TRUE(link_->OnTask());
    EXPECT_EQ(line_.takeWrites(), Texts{});
    EXPECT_EQ(logged().size(), 2U);
    EXPECT_FALSE(link_->commandQueue(3).IsEmpty());
}

TEST_F(SetUpOfThePort, AnAnswerOfATimeoutsClassIsATimeout) {
    line_.answer("03 54 4D 45");
    build(line_.path());
    EXPECT_EQ(logged(), (Texts{tryLine(), timeoutLine()}));
    EXPECT_EQ(link_->linkState(), LinkState::kUnderTest);
}

class WrongClass : public SetUpOfThePort, public testing::WithParamInterface<const char*> {};

TEST_P(WrongClass, FailsTheCheckWithoutAWord) {
    line_.answer(GetParam());
    build(line_.path());
    EXPECT_EQ(logged(), Texts{tryLine()});
    EXPECT_EQ(link_->linkState(), LinkState::kUnderTest);
    link_->OnTask();
    EXPECT_EQ(logged(), Texts{tryLine()});
}

INSTANTIATE_TEST_SUITE_P(SetUpOfThePort, WrongClass,
                         testing::Values("05 12 31 2E 30 34", "05 23 31 2E 30 34",
                                         "05 24 31 2E 30 34", "02 4E 00", "00", "90 06",
                                         "05 42 31 2E 30 34", "05 43 31 2E 30 34"));

TEST_F(SetUpOfThePort, AMissingPortIsLoggedAndTriedAgainAfterAPause) {
    const std::string device = log_.path() + ".adapter";
    build(device);
    EXPECT_EQ(logged(), Texts{"[ERR] unable to open " + portPath_ + " for hardware communication"});
    EXPECT_EQ(pauses_.take(), std::vector<int>{2});
    EXPECT_EQ(link_->linkState(), LinkState::kClosed);

    std::filesystem::create_symlink(line_.path(), device);
    line_.answer(kHardwareAnswer);
    link_->OnTask();
    EXPECT_EQ(logged().back(), foundLine("1.04"));
    EXPECT_EQ(link_->linkState(), LinkState::kReady);
    EXPECT_EQ(pauses_.take(), std::vector<int>{});
}

TEST_F(SetUpOfThePort, ARefusedSettingIsLoggedWithItsNumber) {
    build("/dev/null");
    EXPECT_EQ(logged(), Texts{"[ERR] error 25 from tcsetattr"});
    EXPECT_EQ(link_->linkState(), LinkState::kUnderTest);
    EXPECT_EQ(pauses_.take(), std::vector<int>{2});
}

}  // namespace
