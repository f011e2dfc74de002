// zolt-counts COUNT PERCENT: sends COUNT output commands and makes COUNT input changes at
// this speed of the daemon, and accounts for each of them.
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstring>
#include <functional>
#include <iostream>
#include <thread>

#include "tests/reliability/accounts/traffic.h"
#include "tests/reliability/accounts/watched_daemon.h"
#include "tests/support/process/private_view.h"

namespace {

using namespace reliability;
using support::Clock;

// Nothing may happen for this time before missing items count as lost.
constexpr std::chrono::seconds kStandstill{30};
// The time in which items may still come that should not come.
constexpr std::chrono::milliseconds kAfterwards{500};
constexpr std::chrono::microseconds kIdle{300};
// One change in this number is a change of the analogue card, which takes seven polls.
constexpr std::size_t kReadingShare = 20;
// With more readings, a channel would go from FF back to 0. If a link loss costs polls at
// that moment, the average over both values is a value that no reading has.
constexpr std::size_t kMostReadings = 1500;
constexpr int kAttempts = 3;

bool readNumber(const char* text, std::size_t limit, std::size_t& number) {
    const char* end = text + std::strlen(text);
    const auto result = std::from_chars(text, end, number);
    return result.ec == std::errc() && result.ptr == end && number >= 1 && number <= limit;
}

void stepFor(WatchedDaemon& daemon, Traffic& traffic, const std::function<bool(bool moved)>& goOn) {
    for (bool moved = true; goOn(moved);) {
        daemon.tick();
        moved = traffic.step();
        if (!moved) std::this_thread::sleep_for(kIdle);
    }
}

void play(WatchedDaemon& daemon, Traffic& traffic) {
    auto lastMove = Clock::now();
    stepFor(daemon, traffic, [&](bool moved) {
        if (moved) lastMove = Clock::now();
        return !traffic.done() && Clock::now() - lastMove < kStandstill;
    });
    const auto end = Clock::now() + kAfterwards;
    stepFor(daemon, traffic, [&](bool) { return Clock::now() < end; });
    traffic.close();
}

bool report(const Traffic::Result& result, std::size_t linkLosses, std::chrono::seconds took) {
    std::cout << "  output commands at the cards  " << result.commands.text() << "\n"
              << "  input reports at IO           " << result.reportsAtIo.text() << "\n"
              << "  input reports at MON          " << result.reportsAtMon.text() << "\n"
              << "  lines of IO at MON            " << result.linesAtMon.text() << "\n"
              << "  link losses " << linkLosses << ", " << took.count() << " s" << std::endl;
    const bool exact = result.exact();
    if (!exact) std::cout << "  NOT EQUAL" << std::endl;
    return exact;
}

enum class Outcome { kEqual, kNotEqual, kLinkLost };

// A link loss also loses the request that is under way. On a sound bus the link is only lost
// if the daemon gets no processor for the time of an answer, which is no fault of the
// daemon. An item that comes twice, out of order or without having been sent is always a
// fault of the daemon.
Outcome run(std::size_t count, std::size_t percent) {
    support::enterTestBed();
    support::DaemonSettings settings;
    settings.percent = static_cast<int>(percent);
    settings.polling = true;
    std::cout << count << " commands and " << count << " input changes at " << percent << " %"
              << std::endl;
    WatchedDaemon daemon(settings, kTrafficBus);
    const std::size_t readings = std::min(count / kReadingShare, kMostReadings);
    // The traffic begins before the discovery, after which the cards are polled.
    Traffic traffic(daemon.bus(), daemon.io(), daemon.mon(), {count, count - readings, readings});
    daemon.serveClients();
    daemon.io().take();
    daemon.mon().take();
    daemon.findLink();
    daemon.findCards();
    const auto begin = Clock::now();
    play(daemon, traffic);
    const auto took = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin);
    const std::string console = daemon.cae().take();
    if (!console.empty()) throw Failure("unexpected on the console: " + console);
    const std::size_t linkLosses = daemon.bus().counts().losses;
    const Traffic::Result result = traffic.result();
    const bool equal = report(result, linkLosses, took);
    daemon.stop();
    if (equal) return Outcome::kEqual;
    // No discovery follows a link loss in this program.
    return result.linkLossExplains(linkLosses, false) ? Outcome::kLinkLost : Outcome::kNotEqual;
}

bool runUndisturbed(std::size_t count, std::size_t percent) {
    for (int attempt = 1; attempt < kAttempts; ++attempt) {
        const Outcome outcome = run(count, percent);
        if (outcome != Outcome::kLinkLost) return outcome == Outcome::kEqual;
        std::cout << "  the link was lost because the daemon got no processor: trying again"
                  << std::endl;
    }
    return run(count, percent) == Outcome::kEqual;
}

}  // namespace

int main(int argc, char** argv) {
    std::size_t count = 0;
    std::size_t percent = 0;
    if (argc != 3 || !readNumber(argv[1], 100'000'000, count) ||
        !readNumber(argv[2], 100, percent)) {
        std::cerr << "usage: zolt-counts COUNT PERCENT\n";
        return 2;
    }
    try {
        return runUndisturbed(count, percent) ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "zolt-counts: " << error.what() << "\n";
        return 1;
    }
}
