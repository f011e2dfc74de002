#include "bench/report/pictures.h"

#include <array>
#include <tuple>
#include <utility>

#include "bench/report/bar_chart.h"
#include "bench/report/figures.h"
#include "bench/report/line_chart.h"

namespace bench {
namespace {

// Several daemons in one run differ in their shade.
constexpr std::array kDaemonColours{"#2f6db5", "#7fb0dd", "#1d9a8a", "#86cfc4"};

std::string colourOf(const Report& report, const Contestant& contestant) {
    switch (contestant.role) {
        case Role::kBareLoop:
            return "#8a919b";
        case Role::kTunedGateway:
            return "#d98a2b";
        case Role::kShippedGateway:
            return "#efc88f";
        case Role::kDaemon:
            break;
    }
    const auto daemons = report.labelsOf(Role::kDaemon);
    std::size_t index = 0;
    while (index < daemons.size() && daemons[index] != contestant.label) ++index;
    return kDaemonColours[index % kDaemonColours.size()];
}

struct PanelRow {
    const char* title;
    std::string key;
    int digits = 0;
};

std::string barPicture(const Report& report, const std::string& heading,
                       const std::vector<PanelRow>& rows) {
    std::vector<BarPanel> panels;
    for (const PanelRow& row : rows) {
        BarPanel panel{row.title, row.digits, {}};
        for (const Contestant& contestant : report.contestants) {
            const auto value = report.results.value(row.key, contestant.label);
            if (!value) continue;
            panel.bars.push_back({contestant.label, *value, colourOf(report, contestant)});
        }
        if (!panel.bars.empty()) panels.push_back(panel);
    }
    return panels.empty() ? "" : barChart(heading, panels);
}

// The gateway as shipped is slower by so much that the others would fall together.
std::string cardsPicture(const Report& report) {
    LineChart chart{"Time for one full scan of all polled cards, in milliseconds",
                    "polled cards",
                    "ms",
                    {kCards.begin(), kCards.end()},
                    {}};
    for (const Contestant& contestant : report.contestants) {
        if (contestant.role == Role::kShippedGateway) continue;
        Curve curve{contestant.label, colourOf(report, contestant), false, {}};
        for (const unsigned cards : kCards) {
            const auto scans = report.results.value(scansKey(cards), contestant.label);
            if (scans && *scans > 0) curve.points.emplace_back(cards, 1000 / *scans);
        }
        if (!curve.points.empty()) chart.curves.push_back(std::move(curve));
    }
    if (chart.curves.empty()) return "";
    Curve wire{"the wire alone", "#2b3440", true, {}};
    for (const unsigned cards : kCards) wire.points.emplace_back(cards, 1000 / wireScans(cards));
    chart.curves.push_back(std::move(wire));
    return draw(chart);
}

std::string speedsPicture(const Report& report) {
    const auto label = report.labelOf(Role::kDaemon).value_or("");
    std::vector<BarPanel> panels;
    for (const auto& [what, title, digits] :
         {std::tuple{"scans", "Full scans a second", 0},
          std::tuple{"p50", "Input change to line at the client, p50, us", 0},
          std::tuple{"cpu", "Processor, per cent of one core", 1}}) {
        BarPanel panel{title, digits, {}};
        for (const int percent : kSpeeds) {
            const auto value = report.results.value(speedKey(percent, what), label);
            if (!value) return "";
            panel.bars.push_back({std::to_string(percent) + " %", *value, kDaemonColours[0]});
        }
        panels.push_back(panel);
    }
    return barChart("What each speed gives and costs, with 16 polled cards", panels);
}

}  // namespace

std::vector<Picture> pictures(const Report& report) {
    const std::vector<PanelRow> latencies{
        {"Command in to last byte at the card, p50, us", "command.quiet.p50"},
        {"Command in to last byte at the card, p99, us", "command.quiet.p99"},
        {"Input change to the client, 1 polled card, p50, us", "change.1.p50"},
        {"Input change to the client, 1 polled card, p99, us", "change.1.p99"},
        {"Input change to the client, 16 polled cards, p50, us", "change.16.p50"},
        {"Input change to the client, 16 polled cards, p99, us", "change.16.p99"}};
    const std::vector<PanelRow> rates{{"Full scans of 1 card a second", scansKey(1)},
                                      {"Full scans of 16 cards a second", scansKey(16)},
                                      {"Commands a second, one at a time", "single.rate"},
                                      {"Commands a second, as a flood", "flood.rate"},
                                      {"Processor seconds of 1000 commands, flood", "flood.cpu", 3},
                                      {"Private memory at rest, KiB", "memory.private"}};
    std::vector<Picture> all;
    for (Picture picture :
         {Picture{"performance-cards.svg", cardsPicture(report)},
          Picture{"performance-latency.svg",
                  barPicture(report, "How long it takes: shorter is better", latencies)},
          Picture{"performance-rates.svg",
                  barPicture(report, "How much goes through, and what it costs", rates)},
          Picture{"performance-speeds.svg", speedsPicture(report)}}) {
        if (!picture.svg.empty()) all.push_back(std::move(picture));
    }
    return all;
}

}  // namespace bench
