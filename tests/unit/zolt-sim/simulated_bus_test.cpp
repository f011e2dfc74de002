#include "apps/zolt-sim/simulated_bus.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "apps/zolt-sim/error.h"
#include "lib/text/hexadecimal.h"
#include "tests/unit/zolt-sim/support.h"

namespace zolt_sim {
namespace {

using test::Host;

const char* const kBus = "3 digital-input\n5 digital-output\n7 silent\nE lcd\n";

class SimulatedBusTest : public ::testing::Test {
  protected:
    /// The trace lines without their times, with polls and with notes about hosts.
    std::vector<std::string> traced() const {
        std::vector<std::string> lines;
        for (const std::string& line : bus_.trace()) {
            lines.push_back(line.substr(line.find(' ') + 1));
        }
        return lines;
    }
    bool waitForTrace(const std::string& line) const {
        return test::waitForLine([this] { return bus_.trace(); }, " " + line);
    }

    test::Folder folder_;
    std::string link_ = folder_.file("ttyUSB0");
    SimulatedBus bus_{kBus, {.link = link_, .baud = 0}};
};

TEST_F(SimulatedBusTest, AnswersOnItsLink) {
    Host host(link_);
    host.send({0x03, 0x40, 0x6F, 0x9A});
    EXPECT_EQ(host.receive(6), (Bytes{0x05, 0x06, '1', '.', '0', '4'}));
    host.send({0x01, 0x30});
    EXPECT_EQ(host.receive(18),
              (Bytes{0x11, 0x31, 0, 0, 0, 4, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0, 9, 0}));
    host.send({0x05, 0x10, 0x05, 0x02, 0xFF, 0xFB});
    EXPECT_EQ(host.receive(2), (Bytes{0x01, 0x06}));
    host.send({0x03, 0x20, 0x07, 0x02, 0x03, 0x20, 0x01, 0x02});
    EXPECT_EQ(host.receive(3), (Bytes{0x02, 0x4E, 0x01}));
}

TEST_F(SimulatedBusTest, ControlsChangeTheAnswersToPolls) {
    Host host(link_);
    EXPECT_EQ(host.ask({0x20, 3, 2}), (Bytes{0x21, 3, 0, 0}));
    EXPECT_EQ(bus_.control("press 3 6").text(), "ok\n");
    EXPECT_EQ(host.ask({0x20, 3, 2}), (Bytes{0x21, 3, 0x40, 0}));
    EXPECT_EQ(bus_.control("release 3 6").text(), "ok\n");
    EXPECT_EQ(host.ask({0x20, 3, 2}), (Bytes{0x21, 3, 0, 0}));
}

TEST_F(SimulatedBusTest, TracesFramesAndChanges) {
    Host host(link_);
    ASSERT_TRUE(waitForTrace("note host opened"));
    host.ask({0x20, 3, 2});
    host.ask({0x10, 5, 2, 0xFF, 0xFB});
    host.ask({0x10, 14, 8, 9, 3, 1, 'T', 'a', 'i', 'l', 0});
    ASSERT_TRUE(waitForTrace("card E lcd: text at column 3 row 1 \"Tail\""));
    ASSERT_TRUE(test::waitUntil([&] { return traced().size() == 10; }));
    EXPECT_EQ(traced(), (std::vector<std::string>{
                            "note opened as " + link_, "note host opened", "host> 03 | 20 03 02",
                            "bus>  04 | 21 03 00 00", "host> 05 | 10 05 02 FF FB",
                            "card 5 digital-output: FF FB", "bus>  01 | 06",
                            "host> 0B | 10 0E 08 09 03 01 54 61 69 6C 00",
                            "card E lcd: text at column 3 row 1 \"Tail\"", "bus>  01 | 06"}));
}

TEST_F(SimulatedBusTest, FaultsStrikeOnTheWireAndAreTraced) {
    Host host(link_);
    bus_.control("fault raw 01 02 03");
    host.send({0x03, 0x20, 0x03, 0x02});
    EXPECT_EQ(host.receive(3), (Bytes{0x01, 0x02, 0x03}));
    EXPECT_TRUE(waitForTrace("note fault raw"));
    EXPECT_TRUE(waitForTrace("raw>  01 02 03"));
    bus_.control("fault silence at 3");
    host.send({0x03, 0x20, 0x03, 0x02});
    EXPECT_TRUE(waitForTrace("note fault silence"));
    bus_.control("fault delay 20");
    EXPECT_EQ(host.ask({0x30}).size(), 17U);
    EXPECT_TRUE(waitForTrace("note fault delay"));
    EXPECT_EQ(host.ask({0x20, 3, 2}), (Bytes{0x21, 3, 0, 0}));
}

TEST_F(SimulatedBusTest, IsUnpluggedAndPluggedIn) {
    const std::string other = folder_.file("ttyUSB1");
    {
        const Host host(link_);
        EXPECT_EQ(bus_.control("plug").error, "the adapter is plugged in already");
        EXPECT_TRUE(bus_.control("unplug").ok());
        EXPECT_TRUE(host.hungUp());
    }
    EXPECT_EQ(bus_.control("unplug").error, "the adapter is not plugged in");
    EXPECT_TRUE(bus_.control("press 3 0").ok());
    EXPECT_TRUE(bus_.control("plug " + other).ok());
    EXPECT_EQ(Host(other).ask({0x20, 3, 2}), (Bytes{0x21, 3, 0x01, 0}));
    EXPECT_TRUE(bus_.control("unplug").ok());
    EXPECT_TRUE(bus_.control("plug").ok());
    EXPECT_EQ(Host(other).ask({0x30}).size(), 17U);
    EXPECT_TRUE(waitForTrace("note unplugged"));
    EXPECT_TRUE(waitForTrace("note plugged in as " + other));
}

TEST_F(SimulatedBusTest, KeepsItsNameWhenPluggingInFails) {
    bus_.control("unplug");
    const std::string taken = folder_.write("taken", "precious");
    EXPECT_EQ(bus_.control("plug " + taken).error,
              taken + ": exists and is not a symbolic link, so it is left as it is");
    EXPECT_TRUE(bus_.control("plug").ok());
    EXPECT_EQ(Host(link_).ask({0x30}).size(), 17U);
}

TEST_F(SimulatedBusTest, QuitsOnlyInAProgramThatEndsOnIt) {
    EXPECT_EQ(bus_.control("quit").error, "this bus ends with the program that made it");
    bool ended = false;
    SimulatedBus bus(kBus, {.link = folder_.file("ttyUSB5"), .quit = [&] { ended = true; }});
    EXPECT_TRUE(bus.control("quit").ok());
    EXPECT_TRUE(ended);
}

TEST_F(SimulatedBusTest, TakesControlsWhileItAnswers) {
    std::atomic<bool> stop = false;
    std::thread controls([&] {
        while (!stop) {
            bus_.control("press 3 6");
            bus_.control("show");
            bus_.control("release 3 6");
        }
    });
    Host host(link_);
    for (int i = 0; i < 200; ++i) {
        const Bytes answer = host.ask({0x20, 3, 2});
        EXPECT_TRUE(answer == (Bytes{0x21, 3, 0x40, 0}) || answer == (Bytes{0x21, 3, 0, 0}))
            << zolt_text::hexBytes(answer);
    }
    stop = true;
    controls.join();
}

TEST(SimulatedBus, GivesItsTraceToSinks) {
    const test::Folder folder;
    std::mutex lock;
    std::vector<std::string> filtered;
    std::vector<std::string> whole;
    {
        SimulatedBus bus(kBus, {.link = folder.file("ttyUSB0"),
                                .baud = 0,
                                .keepTrace = false,
                                .sinks = {{[&](const std::string& line) {
                                               const std::lock_guard guard(lock);
                                               filtered.push_back(line);
                                           },
                                           true},
                                          {[&](const std::string& line) {
                                               const std::lock_guard guard(lock);
                                               whole.push_back(line);
                                           },
                                           false}}});
        Host host(folder.file("ttyUSB0"));
        host.ask({0x20, 3, 2});
        host.ask({0x30});
        EXPECT_TRUE(bus.trace().empty());
    }
    EXPECT_TRUE(whole.front().ends_with(" note opened as " + folder.file("ttyUSB0")));
    const auto polls = [](const std::vector<std::string>& lines) {
        return std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
            return line.ends_with("host> 03 | 20 03 02");
        });
    };
    EXPECT_EQ(polls(whole), 1);
    EXPECT_EQ(polls(filtered), 0);
}

TEST(SimulatedBus, SaysWhyItCannotStart) {
    const test::Folder folder;
    EXPECT_THROW(SimulatedBus("3 relay\n", {.link = folder.file("ttyUSB0")}), Error);
    EXPECT_THROW(SimulatedBus("", {.link = folder.file("none/ttyUSB0")}), Error);
}

TEST(SimulatedBus, RemovesItsLink) {
    const test::Folder folder;
    { const SimulatedBus bus("", {.link = folder.file("ttyUSB0")}); }
    EXPECT_FALSE(
        std::filesystem::is_symlink(std::filesystem::symlink_status(folder.file("ttyUSB0"))));
}

}  // namespace
}  // namespace zolt_sim
