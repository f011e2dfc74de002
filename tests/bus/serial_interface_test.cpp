#include "bus/serial_interface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "apps/zolt-sim/simulated_bus.h"
#include "tests/support/temporary_log.h"
#include "tests/support/text/bytes.h"
#include "tests/support/wait.h"

namespace {

using support::waitUntil;
using Texts = std::vector<std::string>;

constexpr const char* kAllKinds =
    "0 servo\n3 digital-input\n5 digital-output\n8 keymatrix\n9 ir\nA motor\nE lcd\n"
    "F analogue-input\n";

/// The link at work, against a simulated card bus.
class Link : public testing::Test {
  protected:
    void plugBus(const std::string& busText) {
        zolt_sim::BusOptions options;
        options.link = path_;
        options.baud = 0;
        bus_ = std::make_unique<zolt_sim::SimulatedBus>(busText, options);
    }

    void startLink(bool polling = true) {
        LOGGER logger;
        logger.fileName = log_.path();
        link_ = std::make_unique<SERIAL_INTERFACE>(path_, logger, cards_, &reports_, polling, true);
        link_->threadDelay = 500;
    }

    void start(const std::string& busText, bool polling = true) {
        plugBus(busText);
        startLink(polling);
        ASSERT_TRUE(waitUntil([this] { return discoveryAnswered(); })) << busText;
    }

    void control(const std::string& line) { EXPECT_EQ(bus_->control(line).error, "") << line; }

    /// The trace without times.
    Texts trace() const {
        Texts lines = bus_->trace();
        for (std::string& line : lines) line.erase(0, line.find(' ') + 1);
        return lines;
    }

    bool traced(const std::string& line) const { return timesTraced(line) > 0; }

    long timesTraced(const std::string& line) const {
        const Texts lines = trace();
        return std::count(lines.begin(), lines.end(), line);
    }

    bool discoveryAnswered() const {
        const Texts lines = trace();
        return std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
            return line.rfind("bus>  11 | 31", 0) == 0;
        });
    }

    /// Sends a frame for a card and waits for a line of the bus's trace.
    void sendAndSee(std::size_t index, const std::string& frame, const std::string& line) {
        link_->commandQueue(index).ToQueue(byteList(frame));
        EXPECT_TRUE(waitUntil([&] { return traced(line); })) << line;
    }

    /// Waits for reports, as many as are asked for.
    Texts reports(std::size_t count) {
        Texts texts;
        waitUntil([&] {
            for (const std::string& text : takeTexts(reports_)) texts.push_back(text);
            return texts.size() >= count;
        });
        return texts;
    }

    bool found(std::ptrdiff_t times) const {
        const Texts lines = log_.lines();
        return std::count(lines.begin(), lines.end(), foundLine_) >= times;
    }

    support::TemporaryLog log_;
    const std::string path_ = log_.path() + ".ttyUSB0";
    const std::string foundLine_ = "[INF] hardware found on " + path_ + " version: 1.04";
    const std::string timeoutLine_ = "[INF] comm timeout " + path_;
    CardTable cards_;
    ZLQUEUE reports_;
    std::unique_ptr<zolt_sim::SimulatedBus> bus_;
    std::unique_ptr<SERIAL_INTERFACE> link_;
};

TEST_F(Link, FindsTheControllerAndEveryKindOfCard) {
    start(std::string(kAllKinds) + "1 code 02\n");
    EXPECT_EQ(log_.lines(), (Texts{"[INF] try to catch hardware on " + path_, foundLine_}));
    EXPECT_TRUE(traced("host> 03 | 40 6F 9A"));
    EXPECT_TRUE(traced("host> 01 | 30"));
    ASSERT_TRUE(waitUntil([this] { return cards_[15].kindCode == 7; }));
    EXPECT_STREQ(cards_[0].kindName, "6 channel RC SERVO CONTROLLER");
    EXPECT_STREQ(cards_[1].kindName, "UNIDENTIFIED");
    EXPECT_STREQ(cards_[2].kindName, "EMPTY");
    EXPECT_STREQ(cards_[3].kindName, "16 channel DIGITAL INPUT");
    EXPECT_STREQ(cards_[5].kindName, "16 channel DIGITAL OUTPUT");
    EXPECT_STREQ(cards_[8].kindName, "KEYMX and ROTE CONTROLLER");
    EXPECT_STREQ(cards_[9].kindName, "IR REMOTE CONTROLLER");
    EXPECT_STREQ(cards_[10].kindName, "3 channel DC MOTOR CONTROLLER");
    EXPECT_STREQ(cards_[14].kindName, "ALPHANUMERIC LCD CONTROLLER");
    EXPECT_STREQ(cards_[15].kindName, "6 channel ANALOGUE INPUT");
}

TEST_F(Link, ReportsDigitalInputs) {
    start(kAllKinds);
    control("press 3 6");
    EXPECT_EQ(reports(1), Texts{"a3b0d40"});
    control("press 3 15");
    EXPECT_EQ(reports(1), Texts{"a3b1d80"});
    control("release 3 6");
    EXPECT_EQ(reports(1), Texts{"a3b0d00"});
}

TEST_F(Link, ReportsKeysAndAnalogueReadings) {
    start(kAllKinds);
    control("key 8 5A");
    EXPECT_EQ(reports(1), Texts{"a8b0d5A"});
    control("turn F 3 20");
    // The round of six in which it was turned may come out lower.
    Texts seen;
    EXPECT_TRUE(waitUntil([&] {
        for (const std::string& text : takeTexts(reports_)) seen.push_back(text);
        return !seen.empty() && seen.back() == "aFb3d20";
    }));
    for (const std::string& text : seen) EXPECT_EQ(text.substr(0, 5), "aFb3d") << text;
}

TEST_F(Link, SixteenInputCardsAreAllPolled) {
    std::string busText;
    for (const char address : std::string("0123456789ABCDEF")) {
        busText += std::string(1, address) + " digital-input\n";
    }
    start(busText);
    Texts expected;
    for (const char address : std::string("0123456789ABCDEF")) {
        control("press " + std::string(1, address) + " 0");
        expected.push_back("a" + std::string(1, address) + "b0d01");
    }
    Texts seen = reports(16);
    std::sort(seen.begin(), seen.end());
    EXPECT_EQ(seen, expected);
}

TEST_F(Link, OutputFramesReachTheirCards) {
    start(kAllKinds);
    sendAndSee(5, "10 05 02 FF FB", "card 5 digital-output: FF FB");
    EXPECT_TRUE(traced("host> 05 | 10 05 02 FF FB"));
    sendAndSee(9, "10 09 02 01 43", "host> 05 | 10 09 02 01 43");
    sendAndSee(14, "10 0E 01 01", "host> 04 | 10 0E 01 01");
    EXPECT_TRUE(log_.has(foundLine_));
    EXPECT_FALSE(log_.has(timeoutLine_));
}

TEST_F(Link, AConfigurationAnswerIsKeptInTheCardsRecord) {
    start(kAllKinds);
    link_->commandQueue(wire::kSystemQueue).ToQueue(byteList("50 0F 40 01"));
    ASSERT_TRUE(waitUntil([this] { return cards_[15].pioAnswer(0) == 'Q'; }));
    EXPECT_EQ(cards_[15].pioAnswer(1), 0x0F);
    EXPECT_EQ(cards_[15].pioAnswer(3), 0x3F);
}

TEST_F(Link, ARefusedRequestLeavesTheLinkUp) {
    start(kAllKinds);
    sendAndSee(7, "10 07 01 00", "bus>  02 | 4E 07");
    control("press 3 0");
    EXPECT_EQ(reports(1), Texts{"a3b0d01"});
    EXPECT_FALSE(log_.has(timeoutLine_));
}

TEST_F(Link, SpoiltAnswersAreDroppedAndTheNextOnesCount) {
    start(kAllKinds);
    unsigned value = 0;
    for (const char* fault : {"class 2", "class 3", "class 4", "class 6", "length 80", "length FF",
                              "length 00", "oversize 140", "address 10", "address FF", "noise 00",
                              "noise 02 4E 4E", "delay 20", "raw 02 4E 4E 01 02 03", "answer 06"}) {
        control(std::string("fault ") + fault + " at 3 for poll 3 times");
        ASSERT_TRUE(waitUntil([this] { return bus_->control("faults").lines.empty(); })) << fault;
        ++value;
        control("set 3 1 " + hexText(std::string(1, static_cast<char>(value))));
        const std::string report = "a3b1d" + hexText(std::string(1, static_cast<char>(value)));
        const Texts seen = reports(1);
        EXPECT_TRUE(std::find(seen.begin(), seen.end(), report) != seen.end()) << fault;
        takeTexts(reports_);
    }
    EXPECT_FALSE(log_.has(timeoutLine_));
    EXPECT_TRUE(found(1));
}

TEST_F(Link, AfterATimeoutItComesBackAndDiscoversAgain) {
    start(kAllKinds);
    ASSERT_TRUE(waitUntil([this] { return traced("host> 03 | 20 03 02"); }));
    control("fault class 1 at 3 for poll once");
    ASSERT_TRUE(waitUntil([this] { return found(2); }));
    EXPECT_TRUE(log_.has(timeoutLine_));
    EXPECT_TRUE(waitUntil([this] { return traced("host> 06 | 20 03 02 20 03 02"); }))
        << "discovery without a clearing doubles the poll frame";
    control("press 3 6");
    EXPECT_EQ(reports(1), Texts{"a3b0d40"});
}

TEST_F(Link, AnUnpluggedAdapterIsFoundWhenItComesBack) {
    start(kAllKinds);
    control("unplug");
    const std::string missing = "[ERR] unable to open " + path_ + " for hardware communication";
    ASSERT_TRUE(waitUntil([&] { return log_.has(missing); }));
    EXPECT_TRUE(log_.has(timeoutLine_));
    EXPECT_EQ(link_->linkState(), SERIAL_INTERFACE::LinkState::kClosed);
    control("plug");
    ASSERT_TRUE(waitUntil([this] { return found(2); }));
    control("press 3 6");
    EXPECT_EQ(reports(1), Texts{"a3b0d40"});
}

TEST_F(Link, ALateAdapterIsFound) {
    startLink();
    const std::string missing = "[ERR] unable to open " + path_ + " for hardware communication";
    ASSERT_TRUE(waitUntil([&] { return log_.has(missing); }));
    plugBus("5 digital-output\n");
    ASSERT_TRUE(waitUntil([this] { return found(1); }));
    sendAndSee(5, "10 05 02 00 00", "card 5 digital-output: 00 00");
}

TEST_F(Link, SwitchesArePolledAnewEachCycle) {
    start("3 digital-input\n", false);
    EXPECT_EQ(timesTraced("host> 03 | 20 03 02"), 0);
    control("press 3 0");
    link_->globalPolling = true;
    EXPECT_EQ(reports(1), Texts{"a3b0d01"});
    cards_[3].pollingOn = false;
    control("press 3 1");
    cards_[3].pollingOn = true;
    EXPECT_EQ(reports(1), Texts{"a3b0d03"});
}

TEST_F(Link, ASignalClosesThePortUnderTheWorkingLink) {
    start(kAllKinds);
    for (int round = 0; round < 3; ++round) {
        link_->mf_SIGhandler(15);
        ASSERT_TRUE(waitUntil([&] { return found(2 + round); }));
    }
    EXPECT_TRUE(log_.has("[INF] signal 15 on serial interface"));
    EXPECT_TRUE(log_.has(timeoutLine_));
}

TEST_F(Link, FramesOfAQueueGoOutInOrder) {
    start(kAllKinds);
    for (unsigned value = 0; value < 50; ++value) {
        const std::string byte = hexText(std::string(1, static_cast<char>(value)));
        link_->commandQueue(5).ToQueue(byteList("10 05 02 00 " + byte));
        link_->commandQueue(0).ToQueue(byteList("10 00 06 00 00 00 00 00 " + byte));
    }
    ASSERT_TRUE(waitUntil([this] { return traced("card 5 digital-output: 00 31"); }));
    ASSERT_TRUE(waitUntil([this] { return traced("host> 09 | 10 00 06 00 00 00 00 00 31"); }));
    Texts sent;
    for (const std::string& line : trace()) {
        if (line.rfind("host> 05 | 10 05", 0) == 0) sent.push_back(line.substr(line.size() - 2));
    }
    ASSERT_EQ(sent.size(), 50U);
    for (unsigned value = 0; value < 50; ++value) {
        EXPECT_EQ(sent[value], hexText(std::string(1, static_cast<char>(value))));
    }
}

}  // namespace
