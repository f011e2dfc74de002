#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <thread>

#include "tests/faults/fault_test.h"
#include "tests/faults/faulty_system.h"
#include "tests/support/files.h"
#include "tests/support/process/child_process.h"
#include "tests/support/wait.h"

namespace {

using support::readFile;
using support::waitUntil;

class SystemStart : public FaultTest {
  protected:
    std::string standardStream(int number) const {
        return std::filesystem::read_symlink("/proc/" + std::to_string(daemon_.number()) + "/fd/" +
                                             std::to_string(number));
    }
};

TEST_F(SystemStart, ClosedStandardStreamsBecomeNeitherASocketNorThePort) {
    plugBus();
    support::writeConfiguration(settings_.toXml());
    support::StandardStreams closed;
    closed.input = support::StandardStreams::kClosed;
    closed.output = support::StandardStreams::kClosed;
    closed.error = support::StandardStreams::kClosed;
    ASSERT_EQ(daemon_.start(closed), "status 0");
    expectFullRound();
    noteState();
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        EXPECT_EQ(standardStream(number), "/dev/null");
    }
    // The output of the daemon is dropped and must not go to the bus.
    io().send("a\r\n");
    EXPECT_NE(answered("DRVVER", "COE:Parser exception -> a"), "");
    EXPECT_EQ(io().receive(), "");
    expectServesAsBefore();
}

/// The daemon on a system whose clock jumps and that refuses threads.
class FaultySystem : public FaultTest {
  protected:
    FaultySystem() : FaultTest(ZOLT_FAULTY_PROGRAM) {}

    static void setClock(std::time_t now) {
        std::ofstream(faulty_system::kClockFile).flush();
        const timespec moment{now, 0};
        const timespec times[2] = {moment, moment};
        if (::utimensat(AT_FDCWD, faulty_system::kClockFile, times, 0) != 0) {
            throw std::system_error(errno, std::generic_category(), "set the clock");
        }
    }

    std::string lastStamp() const {
        return support::splitLines(readFile(settings_.logFile)).back().substr(0, 4);
    }
};

TEST_F(FaultySystem, AClockThatJumpsChangesTheStampsOfTheLogOnly) {
    startServing();
    struct Jump {
        std::time_t now;
        const char* year;
    };
    constexpr std::time_t kMonth = 30L * 86400;
    for (const Jump& jump : {Jump{kMonth, "1970"}, Jump{5'000'000'000, "2128"},
                             Jump{1'000'000'000, "2001"}, Jump{2'147'483'647 + kMonth, "2038"}}) {
        setClock(jump.now);
        // A loss of the link is logged and still takes its pauses.
        bus_->control("fault silence for poll once");
        ASSERT_TRUE(waitUntil([&] { return lastStamp() == jump.year; })) << lastStamp();
        sendOutput(0x77);
        ASSERT_TRUE(outputArrives(0x77)) << jump.year;
    }
    expectServesAsBefore();
}

TEST_F(FaultySystem, ThreadsAreStartedLaterWhenThereWasNoRoomForThem) {
    plugBus();
    // Each interface and the link need a thread.
    for (const int granted : {3, 1, 0}) {
        support::writeFile(faulty_system::kThreadsFile, std::to_string(granted));
        startDaemon();
        ASSERT_TRUE(waitUntil([this] {
            return daemon_.standardError().find(faulty_system::kRefusal) != std::string::npos;
        }));
        EXPECT_TRUE(daemon_.running());
        std::filesystem::remove(faulty_system::kThreadsFile);
        expectFullRound();
        noteState();
        expectServesAsBefore();
        daemon_.signal(SIGTERM);
        EXPECT_EQ(daemon_.waitForEnd(), "status 0");
        for (const auto& line : support::splitLines(daemon_.standardError())) {
            EXPECT_EQ(line, faulty_system::kRefusal);
        }
        support::writeFile(support::standardErrorFile(), "");
        io_.reset();
        console_.reset();
    }
}

TEST_F(FaultySystem, StopsAlsoWhileThereIsNoRoomForThreads) {
    support::writeFile(faulty_system::kThreadsFile, "0");
    startDaemon();
    ASSERT_TRUE(logged("[INF] MON interface listening on port 5003"));
    daemon_.signal(SIGTERM);
    EXPECT_EQ(daemon_.waitForEnd(), "status 0");
    support::writeFile(support::standardErrorFile(), "");
}

}  // namespace
