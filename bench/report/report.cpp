#include "bench/report/report.h"

#include <algorithm>

#include "bench/report/figures.h"

namespace bench {
namespace {

constexpr double kMicroseconds = 1e6;

/// One poll of a digital input card on the wire, in microseconds: 9 bytes of 10 bits.
constexpr double kWirePoll = 9 * 10 * kMicroseconds / 460800;

// `function` gets the daemon's value and another one of each round that has both.
template <typename Function>
void addPerRound(Report& report, const std::string& target, const std::string& label,
                 const Results::Rounds& own, const Results::Rounds& other, Function function) {
    for (std::size_t i = 0; i < std::min(own.size(), other.size()); ++i) {
        report.results.add(target, label, function(own[i], other[i]));
    }
}

void addShares(Report& report, const std::string& label, const std::string& bareLoop) {
    for (const unsigned cards : kShareCards) {
        const std::string key = scansKey(cards);
        const auto own = report.results.rounds(key, label);
        for (const double scans : own) {
            report.results.add(key + ".wire", label, 100 * scans / wireScans(cards));
        }
        const auto floor = report.results.rounds(key, bareLoop);
        addPerRound(report, key + ".bare", label, own, floor,
                    [](double scans, double most) { return 100 * scans / most; });
    }
}

void addCardCost(Report& report, const std::string& label) {
    const auto one = report.results.rounds(scansKey(1), label);
    const auto sixteen = report.results.rounds(scansKey(16), label);
    addPerRound(report, "card.cost", label, one, sixteen, [](double first, double all) {
        return (kMicroseconds / all - kMicroseconds / first) / 15;
    });
}

// A change comes at any time. On average its sample follows after half an exchange, and the
// other half passes on the wire.
void addBeyondExchange(Report& report, const std::string& label, const std::string& bareLoop) {
    addPerRound(report, "change.1.beyond", label, report.results.rounds("change.1.p50", label),
                report.results.rounds(scansKey(1), bareLoop),
                [](double p50, double scans) { return p50 - kMicroseconds / scans; });
}

// An exchange keeps the processor busy from the request to the answer. The busy wait of a
// daemon is therefore that of the bare loop, which makes the same exchanges.
void addAboveBusyWait(Report& report, const std::string& label, const std::string& bareLoop) {
    for (const char* speed : kRestSpeeds) {
        const std::string key = std::string("rest.sixteen.") + speed;
        addPerRound(
            report, key + ".busywait", label, report.results.rounds(key + ".exchanges", label),
            report.results.rounds("exchange.cpu", bareLoop),
            [](double perSecond, double each) { return 100 * perSecond * each / kMicroseconds; });
        addPerRound(report, key + ".above", label, report.results.rounds(key + ".cpu", label),
                    report.results.rounds(key + ".busywait", label),
                    [](double all, double wait) { return all - wait; });
    }
}

}  // namespace

std::vector<std::string> Report::labelsOf(Role role) const {
    std::vector<std::string> labels;
    for (const Contestant& contestant : contestants) {
        if (contestant.role == role) labels.push_back(contestant.label);
    }
    return labels;
}

std::optional<std::string> Report::labelOf(Role role) const {
    const auto labels = labelsOf(role);
    if (labels.empty()) return std::nullopt;
    return labels.front();
}

void addDerived(Report& report) {
    const std::string bareLoop = report.labelOf(Role::kBareLoop).value_or("");
    for (const Contestant& contestant : report.contestants) {
        addShares(report, contestant.label, bareLoop);
        addCardCost(report, contestant.label);
        addBeyondExchange(report, contestant.label, bareLoop);
        addAboveBusyWait(report, contestant.label, bareLoop);
    }
}

double wireScans(unsigned cards) {
    return kMicroseconds / (kWirePoll * cards);
}

}  // namespace bench
