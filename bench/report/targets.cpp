#include "bench/report/targets.h"

#include <cmath>

#include "bench/report/number_text.h"

namespace bench {
namespace {

enum class Measure { kValue, kRatioToBareLoop, kRatioToTunedGateway, kTotal };
// kWithin: abs(value) <= limit; far below 0 would be a fault of the measurement.
enum class Bound { kAtLeast, kAtMost, kUnder, kWithin };

struct Target {
    const char* text;
    const char* figure;
    Measure measure;
    Bound bound;
    double limit;
    int digits;
    const char* unit;
};

constexpr Target kTargets[] = {
    {"full scans of 16 polled cards / the bare loop's", "scans.16", Measure::kRatioToBareLoop,
     Bound::kAtLeast, 0.98, 3, ""},
    {"full scans of 1 polled card / the bare loop's", "scans.1", Measure::kRatioToBareLoop,
     Bound::kAtLeast, 0.92, 3, ""},
    {"line in to last byte at the card, quiet, p50 / tuned ser2net's", "command.quiet.p50",
     Measure::kRatioToTunedGateway, Bound::kAtMost, 1.25, 2, ""},
    {"the same, p99 / tuned ser2net's", "command.quiet.p99", Measure::kRatioToTunedGateway,
     Bound::kAtMost, 2, 2, ""},
    {"change to line, 1 card, p50, beyond the bare loop's exchange", "change.1.beyond",
     Measure::kValue, Bound::kAtMost, 100, 0, " us"},
    {"commands one at a time / tuned ser2net's", "single.rate", Measure::kRatioToTunedGateway,
     Bound::kAtLeast, 0.85, 2, ""},
    {"processor at rest, default speed, no adapter", "rest.none.default.cpu", Measure::kValue,
     Bound::kUnder, 1.5, 2, " %"},
    {"processor at rest, default speed, empty bus", "rest.empty.default.cpu", Measure::kValue,
     Bound::kUnder, 1.5, 2, " %"},
    {"processor above the busy wait, 16 polled cards, default speed", "rest.sixteen.default.above",
     Measure::kValue, Bound::kWithin, 5, 2, " %"},
    {"private memory at rest", "memory.private", Measure::kValue, Bound::kUnder, 1024, 0, " KiB"},
    {"resident memory at rest", "memory.resident", Measure::kValue, Bound::kUnder, 5 * 1024, 0,
     " KiB"},
    {"lost commands", "commands.lost", Measure::kTotal, Bound::kAtMost, 0, 0, ""},
    {"lost reports", "reports.lost", Measure::kTotal, Bound::kAtMost, 0, 0, ""},
    {"link losses", "link.losses", Measure::kTotal, Bound::kAtMost, 0, 0, ""},
};

std::optional<double> valueOf(const Report& report, const Target& target,
                              const std::string& label) {
    const Results& results = report.results;
    switch (target.measure) {
        case Measure::kValue:
            return results.value(target.figure, label);
        case Measure::kRatioToBareLoop:
            return results.ratio(target.figure, label,
                                 report.labelOf(Role::kBareLoop).value_or(""));
        case Measure::kRatioToTunedGateway:
            return results.ratio(target.figure, label,
                                 report.labelOf(Role::kTunedGateway).value_or(""));
        case Measure::kTotal:
            if (results.rounds(target.figure, label).empty()) return std::nullopt;
            return results.sum(target.figure, label);
    }
    return std::nullopt;
}

bool met(double value, const Target& target) {
    switch (target.bound) {
        case Bound::kAtLeast:
            return value >= target.limit;
        case Bound::kAtMost:
            return value <= target.limit;
        case Bound::kUnder:
            return value < target.limit;
        case Bound::kWithin:
            return std::abs(value) <= target.limit;
    }
    return false;
}

std::string limitText(const Target& target) {
    const char* words = target.bound == Bound::kAtLeast  ? "at least "
                        : target.bound == Bound::kAtMost ? "at most "
                        : target.bound == Bound::kWithin ? "within "
                                                         : "under ";
    return words + numberText(target.limit, target.digits) + target.unit;
}

}  // namespace

std::vector<Verdict> verdicts(const Report& report) {
    std::vector<Verdict> all;
    // The targets are those of a machine with nothing else to do.
    if (!report.crowd.empty()) return all;
    for (const std::string& label : report.labelsOf(Role::kDaemon)) {
        for (const Target& target : kTargets) {
            const auto value = valueOf(report, target, label);
            if (!value) continue;
            all.push_back({label, target.text, limitText(target),
                           numberText(*value, target.digits) + target.unit, met(*value, target)});
        }
    }
    return all;
}

}  // namespace bench
