#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <thread>

#include "tests/faults/fault_test.h"
#include "tests/support/process/silent_adapter.h"

namespace {

using support::SilentAdapter;

std::string deviceName(unsigned number) {
    return "/dev/ttyUSB" + std::to_string(number);
}

/// An adapter that sends without a pause, whatever it is sent.
class BabblingAdapter {
  public:
    BabblingAdapter(const std::string& link, std::string bytes)
        : adapter_(link), bytes_(std::move(bytes)), worker_([this] { babble(); }) {}
    ~BabblingAdapter() {
        stop_ = true;
        worker_.join();
    }
    BabblingAdapter(const BabblingAdapter&) = delete;
    BabblingAdapter& operator=(const BabblingAdapter&) = delete;

  private:
    void babble() {
        const int controller = adapter_.farEnd();
        ::fcntl(controller, F_SETFL, O_NONBLOCK);
        std::array<char, 4096> asked{};
        while (!stop_) {
            // The requests of the daemon are read and dropped.
            [[maybe_unused]] const auto taken = ::read(controller, asked.data(), asked.size());
            if (::write(controller, bytes_.data(), bytes_.size()) < 0) {
                std::this_thread::sleep_for(std::chrono::microseconds(100));
            }
        }
    }

    SilentAdapter adapter_;
    std::string bytes_;
    std::atomic<bool> stop_{false};
    std::thread worker_;
};

class BusAdapter : public FaultTest {};

TEST_F(BusAdapter, UnpluggedInMidFrameAndBackUnderOtherNames) {
    startServing();
    for (unsigned cycle = 0; cycle < 8; ++cycle) {
        // The adapter goes in the middle of an answer.
        bus_->control("fault raw 03 21 at 3 for poll once");
        ASSERT_TRUE(traced("raw>  03 21"));
        bus_->control("unplug");
        bus_->control("plug " + deviceName((cycle + 1) % 10));
        sendOutput(cycle);
        ASSERT_TRUE(outputArrives(cycle));
    }
    bus_->control("unplug");
    bus_->control("plug /dev/ttyUSB0");
    expectServesAsBefore();
}

TEST_F(BusAdapter, PluggedInLater) {
    startDaemon();
    ASSERT_TRUE(logged("[ERR] ttyUSB devices couldn't be found", 2));
    plugBus();
    ASSERT_TRUE(logged("[INF] hardware found on /dev/ttyUSB0 version: 1.04"));
    expectFullRound();
    noteState();
    bus_->control("unplug");
    ASSERT_TRUE(logged("[INF] comm timeout /dev/ttyUSB0"));
    bus_->control("plug");
    expectServesAsBefore();
}

TEST_F(BusAdapter, TheSecondOfTwoIsTheRightOne) {
    const SilentAdapter first("/dev/ttyUSB0");
    plugBus("/dev/ttyUSB1");
    startServing();
    bus_->control("fault silence for poll once");
    ASSERT_TRUE(logged("[INF] hardware found on /dev/ttyUSB1 version: 1.04", 2));
    EXPECT_TRUE(logged("[INF] comm timeout /dev/ttyUSB0", 2));
    expectServesAsBefore();
}

TEST_F(BusAdapter, TheLastOfTwentyIsTheRightOne) {
    // ttyUSB9 sorts after all other names from ttyUSB0 to ttyUSB19.
    constexpr unsigned kAdapters = 20;
    constexpr unsigned kRight = 9;
    std::vector<std::unique_ptr<SilentAdapter>> others;
    for (unsigned number = 0; number < kAdapters; ++number) {
        if (number != kRight) others.push_back(std::make_unique<SilentAdapter>(deviceName(number)));
    }
    plugBus(deviceName(kRight));
    startDaemon();
    for (unsigned number = 0; number < kAdapters; ++number) {
        ASSERT_TRUE(logged("[INF] try to catch hardware on " + deviceName(number)));
    }
    ASSERT_TRUE(logged("[INF] hardware found on /dev/ttyUSB9 version: 1.04"));
    expectFullRound();
    noteState();
    for (unsigned number = 0; number < kAdapters; ++number) {
        EXPECT_EQ(timesLogged("[INF] try to catch hardware on " + deviceName(number)), 1);
    }
    expectServesAsBefore();
}

TEST_F(BusAdapter, OneThatBabblesWhatIsNoAnswerIsPassedOver) {
    const BabblingAdapter first("/dev/ttyUSB0", "BBBB");
    plugBus("/dev/ttyUSB1");
    startServing();
    EXPECT_TRUE(logged("[INF] try to catch hardware on /dev/ttyUSB0"));
    bus_->control("fault silence for poll once");
    expectServesAsBefore();
}

TEST_F(BusAdapter, OneThatBabblesWhatLooksLikeAnswersIsTakenUntilItIsGone) {
    // These are frames of 85 bytes 55: answers of an unknown class.
    auto first = std::make_unique<BabblingAdapter>("/dev/ttyUSB0", "UUUUUUUU");
    startDaemon();
    ASSERT_TRUE(logged("[INF] hardware found on /dev/ttyUSB0 version: UUUU"));
    EXPECT_NE(answered("FORCEDISCOVER", "DTI:0xF:EMPTY"), "");
    for (unsigned i = 0; i < 50; ++i) sendOutput(i);
    EXPECT_NE(answered("DRVVER", "1.20"), "");
    plugBus("/dev/ttyUSB1");
    first.reset();
    // The daemon notices the gap at the next request.
    EXPECT_NE(answered("FORCEDISCOVER", "DTI:0xF:"), "");
    ASSERT_TRUE(logged("[INF] hardware found on /dev/ttyUSB1 version: 1.04"));
    expectFullRound();
    noteState();
    bus_->control("fault silence for poll once");
    expectServesAsBefore();
}

TEST_F(BusAdapter, TheBusItselfBabbles) {
    startServing();
    for (const std::string noise : {"00", "7F", "FF", "54", "01 06", "03 21 03 00"}) {
        std::string burst;
        for (int i = 0; i < 40; ++i) burst += " " + noise;
        // Some of these faults cost the link, and they also hit the hardware check.
        bus_->control("fault noise" + burst + " 4 times");
        ASSERT_TRUE(faultsHaveStruck()) << noise;
        sendOutput(0x66);
        ASSERT_TRUE(outputArrives(0x66)) << noise;
    }
    expectServesAsBefore();
}

}  // namespace
