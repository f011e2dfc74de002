#include "tests/reliability/soak/soak_report.h"

#include <array>
#include <cstdio>

#include "tests/support/sanitizer.h"

namespace reliability {
namespace {

// A heap keeps the size of its largest storm. A larger storm after the warm-up may add this
// much.
constexpr double kMemoryNoiseKib = 512;

constexpr const char* kHeader =
    "minute  VmRSS kB  RssAnon kB  desc  thr  commands sent/seen  changes made/reported  "
    "conn  link lost/back  longest return\n";
constexpr const char* kLine =
    "%6.1f  %8zu  %10zu  %4zu  %3zu  %9zu/%-8zu  %11zu/%-9zu  %4zu  "
    "%9zu/%-4zu  %11lld ms\n";

constexpr bool kMemoryJudged = !support::kMemorySanitized;

template <typename... Values>
std::string formatted(const char* format, Values... values) {
    std::array<char, 256> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::string returnsText(const BusWatch::Returns& returns) {
    return formatted("at most %lld ms; of %zu, %zu took more than %lld s",
                     static_cast<long long>(returns.longest.count()), returns.measured,
                     returns.slow, static_cast<long long>(kPromisedReturn.count()));
}

}  // namespace

std::string SoakReport::header() {
    return kHeader;
}

void SoakReport::add(double minutes, SoakStage& stage, const CalmCounts& calm) {
    last_ = support::resourcesAtRest(stage.daemon().number());
    if (memory_.empty()) first_ = last_;
    if (memoryJudged_) {
        memory_.push_back({minutes, static_cast<double>(last_.anonymousKib) -
                                        static_cast<double>(stage.monitorKib())});
    }
    bus_ = stage.bus().counts();
    calm_ = calm;
    Tally commands = calm.stormCommands;
    commands += calm.commands;
    line_ = formatted(kLine, minutes, last_.residentKib, last_.anonymousKib, last_.descriptors,
                      last_.threads, commands.sent, commands.seen, calm.reports.sent,
                      calm.reports.seen, stage.connections(), bus_.losses, bus_.recoveries,
                      static_cast<long long>(bus_.returnsAlone.longest.count()));
}

std::string SoakReport::growth() const {
    std::string text;
    if (kMemoryJudged && trendOf(memory_).risesAbove(kMemoryNoiseKib)) text += "memory grows\n";
    if (last_.descriptors > first_.descriptors) text += "descriptors were left open\n";
    if (last_.threads > first_.threads) text += "threads were left over\n";
    return text;
}

std::string SoakReport::summary() const {
    const Trend trend = trendOf(memory_);
    std::string text = formatted(
        "RssAnon without the kept input of MON: %+.1f kB a minute (standard error %.1f) over %zu "
        "calm phases, %.1f minutes\n",
        trend.slope, trend.error, trend.points, trend.span);
    text += formatted("descriptors %zu at first, %zu at last; threads %zu and %zu\n",
                      first_.descriptors, last_.descriptors, first_.threads, last_.threads);
    text +=
        "back in service after a return of the adapter: " + returnsText(bus_.returnsAlone) + "\n";
    text += "the same with other adapters plugged in: " + returnsText(bus_.returnsAmongStrangers) +
            "\n";
    text += formatted("commands of storms: %zu, of which %zu were lost and %zu may be lost\n",
                      calm_.stormCommands.sent, calm_.stormCommands.lost, calm_.mayBeLost);
    text += formatted("calm phases repeated because the link was lost: %zu\n", calm_.repeated);
    return text;
}

}  // namespace reliability
