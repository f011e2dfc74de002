#include <poll.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/command.h"
#include "apps/zoltctl/output/listening.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/output/time_stamp.h"
#include "apps/zoltctl/port_failure.h"
#include "lib/ports/blocking/console_session.h"
#include "lib/ports/replies.h"
#include "lib/ports/reports.h"
#include "lib/text/decimal.h"
#include "lib/text/hexadecimal.h"
#include "lib/text/printable.h"

namespace zoltctl {

using zolt_os::Clock;
using zolt_os::Deadline;
using zolt_os::Seconds;
using zolt_ports::Port;
using zolt_ports::Report;
using zolt_text::hexByte;
using zolt_text::parseHexDigit;
using zolt_text::printable;
using zolt_text::quote;

namespace {

/// The names of the cards by address; empty where there is no card.
using Names = std::array<std::string, 16>;

/// A console that is free answers within 3 seconds.
constexpr Seconds kNamesPatience{5};

Names askNames(const Settings& settings, int hurry) {
    zolt_ports::ConsoleSession console(settings.at(Port::kCae),
                                       std::min(settings.timeout, kNamesPatience), hurry);
    Names names;
    for (const zolt_ports::CardEntry& card :
         zolt_ports::parseCards(console.ask("DISCOVER"), "DISCOVER")) {
        if (zolt_ports::rowOf(card.kind).isCard) {
            names.at(*parseHexDigit(card.address)) = card.name;
        }
    }
    return names;
}

/// No names if the console does not give them: a watch without names is better than none.
Names namesIfPossible(const Settings& settings, int hurry) {
    try {
        return askNames(settings, hurry);
    } catch (const zolt_ports::PortError& error) {
        // The note is left out if the error comes from the haste.
        if (!zolt_os::waitFor(hurry, POLLIN, Deadline(Clock::now()))) {
            std::fprintf(stderr, "zoltctl: note: no card names: %s\n", failureOf(error).what());
        }
        return {};
    }
}

std::string changeText(const Report& report, WallTime time, const std::string& name) {
    return timeText(time) + "  " + report.address + "  " +
           (name.empty() ? "" : printable(name) + "  ") + "block " + std::to_string(report.block) +
           "  " + hexByte(report.value);
}

std::string changeJson(const Report& report, WallTime time, const std::string& name) {
    return oneLine({{"time", timeIso(time)},
                    {"address", std::string(1, report.address)},
                    {"kind", name.empty() ? Json() : Json(name)},
                    {"block", report.block},
                    {"value", report.value},
                    {"hex", hexByte(report.value)}});
}

Report reportOf(const std::string& line) {
    const auto report = zolt_ports::parseReport(line);
    if (!report) {
        throw zolt_ports::notZolt("what came on the IO port",
                                  quote(line) + " is not an input change");
    }
    return *report;
}

/// Input changes, with the cards' names if they are wanted.
class Changes : public LineFormat {
  public:
    Changes(const Settings& settings, bool withNames)
        : settings_(settings), withNames_(withNames) {}

    void prepare(int hurry) override {
        if (withNames_) {
            names_ = namesIfPossible(settings_, hurry);
        }
    }
    void check(const std::string& line) const override { reportOf(line); }
    std::string format(const TimedLine& line) const override {
        const Report report = reportOf(line.text);
        const std::string& name = names_.at(*parseHexDigit(report.address));
        return settings_.json ? changeJson(report, line.time, name)
                              : changeText(report, line.time, name);
    }

  private:
    Settings settings_;
    bool withNames_;
    Names names_;
};

/// The lines of the monitor, with the time before them.
class MonitorLines : public LineFormat {
  public:
    explicit MonitorLines(bool json) : json_(json) {}

    std::string format(const TimedLine& line) const override {
        return json_ ? oneLine({{"time", timeIso(line.time)}, {"line", line.text}})
                     : timeText(line.time) + "  " + printable(line.text);
    }

  private:
    bool json_;
};

Limits limitsOf(const Request& request) {
    constexpr double kYear = 31'536'000;
    constexpr unsigned kManyLines = 2'000'000'000;
    Limits limits;
    if (request.has("--for")) {
        const std::string& text = request.options.at("--for");
        const auto seconds = zolt_text::parsePositive(text, kYear);
        if (!seconds) {
            throw Failure(Status::kUsage, "--for takes seconds above 0, not " + quote(text));
        }
        limits.time = Seconds(*seconds);
    }
    if (request.has("--count")) {
        const std::string& text = request.options.at("--count");
        limits.count = zolt_text::parseDecimal(text, kManyLines);
        if (limits.count.value_or(0) == 0) {
            throw Failure(Status::kUsage, "--count takes a number from 1 on, not " + quote(text));
        }
    }
    return limits;
}

}  // namespace

void watch(const Settings& settings, const Request& request) {
    listenTo(settings, Port::kIo, {settings.at(Port::kIo).outSeparator}, limitsOf(request),
             std::make_shared<Changes>(settings, !request.has("--no-names")));
}

void monitor(const Settings& settings, const Request& request) {
    // The monitor shows reports and the lines of IO clients, each with its own end.
    const zolt_ports::Endpoint& io = settings.at(Port::kIo);
    listenTo(settings, Port::kMon, {io.outSeparator, io.lineEnd.value_or("")}, limitsOf(request),
             std::make_shared<MonitorLines>(settings.json));
}

}  // namespace zoltctl
