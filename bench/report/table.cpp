#include "bench/report/table.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "bench/report/figures.h"
#include "bench/report/number_text.h"
#include "bench/report/targets.h"

namespace bench {
namespace {

constexpr int kTextWidth = 66;
constexpr int kUnitWidth = 5;
constexpr int kLeastColumn = 10;
constexpr int kLimitWidth = 17;
constexpr int kValueWidth = 12;

int columnWidth(const std::string& label) {
    return std::max(kLeastColumn, static_cast<int>(label.size())) + 2;
}

void writeLinkLosses(std::ostream& out, const Report& report) {
    if (report.linkLosses.empty()) out << "link losses: none\n";
    bool discarded = false;
    for (const LinkLoss& loss : report.linkLosses) {
        out << "link losses: " << loss.losses << " in round " << loss.round << ", " << loss.stretch
            << ", " << loss.contestant << (loss.discarded ? ", attempt discarded" : "") << "\n";
        discarded = discarded || loss.discarded;
    }
    if (!discarded) return;
    out << "Of a discarded attempt only the losses count; it is in no median or percentile.\n";
}

void writeMachine(std::ostream& out, const Report& report) {
    const Machine& machine = report.machine;
    out << "zolt, measured " << report.date << ": " << report.rounds
        << (report.rounds == 1 ? " round in " : " rounds in ") << numberText(report.seconds, 0)
        << " s\n";
    if (!report.brokenOff.empty()) {
        out << "BROKEN OFF, so what follows is incomplete: " << report.brokenOff << "\n";
    }
    if (!report.crowd.empty()) out << "a busy machine: " << report.crowd << "\n";
    out << "machine: " << machine.processors << " x " << machine.processor << ", " << machine.kernel
        << "\n"
        << "places: " << machine.placement << "\n"
        << "noise, in processors: stolen by the host " << numberText(report.noise.steal, 3)
        << ", at worst " << numberText(report.noise.worstSteal, 3) << "; other load "
        << numberText(report.noise.otherLoad, 2) << ", at worst "
        << numberText(report.noise.worstOtherLoad, 2) << "\n";
    writeLinkLosses(out, report);
    out << "slave: " << numberText(report.lateness.answers, 0) << " answers held back, late by p50 "
        << numberText(report.lateness.p50, 0) << " us, p99 " << numberText(report.lateness.p99, 0)
        << " us\n"
        << "Each figure is the median of its rounds; 100 % speed and wire timing where no other\n"
        << "is named.\n";
}

std::string cell(const Report& report, const Figure& figure, const std::string& label) {
    if (report.results.rounds(figure.key, label).empty()) return "-";
    const double value = figure.total ? report.results.sum(figure.key, label)
                                      : *report.results.value(figure.key, label);
    return numberText(value, figure.digits);
}

void writeSection(std::ostream& out, const Report& report, const Section& section) {
    const bool measured = std::any_of(
        section.figures.begin(), section.figures.end(),
        [&](const Figure& figure) { return report.results.all().contains(figure.key); });
    if (!measured) return;
    out << "\n" << std::left << std::setw(kTextWidth + kUnitWidth) << section.title << std::right;
    for (const auto& contestant : report.contestants) {
        out << std::setw(columnWidth(contestant.label)) << contestant.label;
    }
    out << "\n";
    for (const Figure& figure : section.figures) {
        if (!report.results.all().contains(figure.key)) continue;
        out << std::left << std::setw(kTextWidth) << "  " + figure.text << std::setw(kUnitWidth)
            << figure.unit << std::right;
        for (const auto& contestant : report.contestants) {
            out << std::setw(columnWidth(contestant.label))
                << cell(report, figure, contestant.label);
        }
        out << "\n";
    }
}

void writeSpeeds(std::ostream& out, const Report& report, const std::string& label) {
    if (!report.results.value(speedKey(kSpeeds.front(), "scans"), label)) return;
    out << "\nSpeed, 16 polled cards: " << label << "\n"
        << "  percent  full scans/s  change to line p50, us  processor, %\n";
    for (const int percent : kSpeeds) {
        const auto value = [&](const char* what) {
            return report.results.value(speedKey(percent, what), label).value_or(0);
        };
        out << std::setw(9) << percent << std::setw(14) << numberText(value("scans"), 0)
            << std::setw(24) << numberText(value("p50"), 0) << std::setw(14)
            << numberText(value("cpu"), 1) << "\n";
    }
}

void writeVerdicts(std::ostream& out, const Report& report) {
    std::string daemon;
    for (const Verdict& verdict : verdicts(report)) {
        if (verdict.daemon != daemon) {
            daemon = verdict.daemon;
            out << "\nWhat it should reach: " << daemon << "\n";
        }
        out << std::left << std::setw(kTextWidth) << "  " + verdict.text << std::setw(kLimitWidth)
            << verdict.limit << std::right << std::setw(kValueWidth) << verdict.value
            << (verdict.met ? "  met" : "  NOT MET") << "\n";
    }
    // This number depends on the code and not on the machine, so it is not measured here.
    if (!daemon.empty()) {
        out << "Allocations per cycle with nothing to do: 0; the tests allocations.IdleCycle* show "
               "it.\n";
    }
}

}  // namespace

std::string table(const Report& report) {
    std::ostringstream out;
    writeMachine(out, report);
    for (const Section& section : sections()) writeSection(out, report, section);
    for (const std::string& label : report.labelsOf(Role::kDaemon)) {
        writeSpeeds(out, report, label);
    }
    writeVerdicts(out, report);
    return out.str();
}

}  // namespace bench
