// zolt-soak MINUTES [SEED]: makes storms of everything that clients, the bus and the system
// may do. In the calm phases between them the daemon has to serve as if nothing had
// happened. The seed decides the storms.
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <random>
#include <thread>

#include "tests/reliability/soak/actions.h"
#include "tests/reliability/soak/calm.h"
#include "tests/reliability/soak/soak_report.h"

namespace {

using namespace reliability;
using support::Clock;

constexpr std::size_t kActionsPerStorm = 80;
constexpr std::size_t kLongestPauseMs = 250;
// One storm in so many minutes ends the daemon by SIGTERM. Such a storm and its calm take
// half a minute.
constexpr std::size_t kMinutesPerRestart = 10;
constexpr double kMinutesOfRestart = 0.5;

enum class Restart { kNo, kYes };

class Soak {
  public:
    Soak(std::size_t minutes, std::uint64_t seed) : minutes_(minutes), seed_(seed) {}

    int run() {
        std::cout << "seed " << seed_ << "\n" << SoakReport::header() << std::flush;
        try {
            play();
        } catch (const std::exception& error) {
            std::cout << stage_.daemon().standardError();
            stage_.diary().write(std::cout);
            std::cout << "FAILED in storm " << storm_ << ": " << error.what() << "\nseed " << seed_
                      << std::endl;
            return 1;
        }
        const std::string growth = report_.growth();
        std::cout << report_.summary() << growth
                  << (growth.empty() ? "nothing lost, nothing left over" : "FAILED") << std::endl;
        return growth.empty() ? 0 : 1;
    }

  private:
    double minutesSoFar() const {
        return std::chrono::duration<double, std::ratio<60>>(Clock::now() - begin_).count();
    }

    void play() {
        calm();
        stage_.ask("SPEED=1", "CIA: SPEED IS SET to 1%");
        floodAtMost(stage_);
        calm();
        const std::size_t restarts = 1 + minutes_ / kMinutesPerRestart;
        const double end =
            static_cast<double>(minutes_) - kMinutesOfRestart * static_cast<double>(restarts);
        for (std::size_t minute = 1; minutesSoFar() < end;) {
            storm();
            calm();
            if (minutesSoFar() < static_cast<double>(minute)) continue;
            std::cout << report_.line() << std::flush;
            minute = static_cast<std::size_t>(minutesSoFar()) + 1;
        }
        // The restarts come last, since memory is judged over the long life of one daemon.
        report_.daemonChanged();
        for (std::size_t i = 0; i < restarts; ++i) {
            storm(Restart::kYes);
            calm();
        }
        std::cout << report_.line() << std::flush;
        stopLogged();
    }

    // The log still works after everything that has happened to the log and its disk.
    void stopLogged() {
        const std::string line = "[INF] zolt is stopped by SIGTERM or SIGINT";
        const std::size_t before = stage_.disk().linesWith(line);
        stage_.stop();
        if (stage_.disk().linesWith(line) != before + 1) {
            throw Failure("the log does not report the daemon's end");
        }
    }

    // Each storm and each action has random numbers of its own, so that none depends on how
    // many numbers another one has drawn.
    void storm(Restart restart = Restart::kNo) {
        ++storm_;
        stage_.diary().begin("storm " + std::to_string(storm_));
        Random storm(seed_, 2 * storm_);
        const std::size_t restartAt = storm.below(kActionsPerStorm);
        for (std::size_t i = 0; i < kActionsPerStorm; ++i) {
            if (restart == Restart::kYes && i == restartAt) {
                stage_.diary().note("SIGTERM and another daemon");
                stage_.restart();
            }
            Random own(storm.number());
            const Action& action = drawAction(actions_, own);
            stage_.diary().note(action.name);
            action.perform(stage_, own);
            const auto pause = std::chrono::milliseconds(storm.below(kLongestPauseMs));
            for (const auto end = Clock::now() + pause; Clock::now() < end;) {
                stage_.tick();
                dropReceived();
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            }
        }
    }

    void dropReceived() {
        for (NonBlockingClient* client : {&stage_.cae(), &stage_.io(), &stage_.mon()}) {
            if (client->served()) client->take();
        }
    }

    void calm() {
        stage_.diary().begin("calm after storm " + std::to_string(storm_));
        Random own(seed_, 2 * storm_ + 1);
        calmDown(stage_, own, calmCounts_);
        if (const auto errors = stage_.daemon().standardError(); !errors.empty()) {
            throw Failure("the daemon printed errors");
        }
        report_.add(minutesSoFar(), stage_, calmCounts_);
    }

    const std::size_t minutes_;
    const std::uint64_t seed_;
    const Clock::time_point begin_ = Clock::now();
    const std::vector<Action> actions_ = allActions();
    SoakStage stage_;
    std::size_t storm_ = 0;
    CalmCounts calmCounts_;
    SoakReport report_;
};

template <typename Number>
bool readNumber(const char* text, Number& number) {
    const char* end = text + std::strlen(text);
    const auto result = std::from_chars(text, end, number);
    return result.ec == std::errc() && result.ptr == end;
}

}  // namespace

int main(int argc, char** argv) {
    std::size_t minutes = 0;
    std::uint64_t seed = std::random_device()();
    const bool wrong = argc < 2 || argc > 3 || !readNumber(argv[1], minutes) || minutes == 0 ||
                       (argc == 3 && !readNumber(argv[2], seed));
    if (wrong) {
        std::cerr << "usage: zolt-soak MINUTES [SEED]\n";
        return 2;
    }
    // A sanitizer has to give freed memory back: only then does the table show leaks.
    ::setenv("ASAN_OPTIONS", "quarantine_size_mb=1:thread_local_quarantine_size_kb=16", 0);
    try {
        return Soak(minutes, seed).run();
    } catch (const std::exception& error) {
        std::cerr << "zolt-soak: " << error.what() << "\n";
        return 1;
    }
}
