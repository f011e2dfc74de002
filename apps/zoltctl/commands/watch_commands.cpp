// watch, monitor.
#include <poll.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

#include "apps/zoltctl/commands/commands.h"
#include "apps/zoltctl/output/listening.h"
#include "apps/zoltctl/output/output.h"
#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/output/time_stamp.h"
#include "apps/zoltctl/ports/console_session.h"
#include "apps/zoltctl/ports/items.h"
#include "apps/zoltctl/ports/replies.h"

namespace ctl {
namespace {

/// By address; empty where there is none.
using Names = std::array<std::string, 16>;

/// A console that is free answers within 3 seconds.
constexpr Seconds kNamesPatience{5};

Names askNames(const Settings& settings, int hurry) {
    ConsoleSession console(settings.at(Port::kCae), std::min(settings.timeout, kNamesPatience),
                           hurry);
    Names names;
    for (const CardEntry& card : parseCards(console.ask("DISCOVER"), "DISCOVER")) {
        if (card.kind != kNoCard) {
            names.at(*hexDigit(card.address)) = card.kind;
        }
    }
    return names;
}

/// A watch without names is better than none.
Names namesIfPossible(const Settings& settings, int hurry) {
    try {
        return askNames(settings, hurry);
    } catch (const Failure& failure) {
        // When it was told to hurry the console is not to blame.
        if (!waitFor(hurry, POLLIN, Deadline(Clock::now()))) {
            std::fprintf(stderr, "zoltctl: note: no card names: %s\n", failure.what());
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

}  // namespace

void watch(const Settings& settings, const Request& request) {
    const auto names = std::make_shared<Names>();
    Listening listening;
    listening.port = Port::kIo;
    listening.separators = {settings.at(Port::kIo).outSeparator};
    if (request.has("--no-names")) {
        listening.before = [](int /*hurry*/) {};
    } else {
        listening.before = [names, settings](int hurry) {
            *names = namesIfPossible(settings, hurry);
        };
    }
    listening.convert = [names, json = settings.json](const std::string& line) {
        const WallTime now = std::chrono::system_clock::now();
        const auto report = parseReport(line);
        if (!report) {
            throw Failure(Status::kNotZolt,
                          "what came on the IO port is no input change: " + quote(line));
        }
        return [names, json, now, change = *report] {
            const std::string& name = names->at(*hexDigit(change.address));
            return json ? changeJson(change, now, name) : changeText(change, now, name);
        };
    };
    listenTo(settings, request, listening);
}

void monitor(const Settings& settings, const Request& request) {
    Listening listening;
    listening.port = Port::kMon;
    // It shows reports and the lines of IO clients, both with their own ends.
    const Endpoint& io = settings.at(Port::kIo);
    listening.separators = {io.outSeparator, io.lineEnd.value_or("")};
    listening.before = [](int /*hurry*/) {};
    listening.convert = [json = settings.json](const std::string& line) {
        const WallTime now = std::chrono::system_clock::now();
        return [json, now, line] {
            return json ? oneLine({{"time", timeIso(now)}, {"line", line}})
                        : timeText(now) + "  " + printable(line);
        };
    };
    listenTo(settings, request, listening);
}

}  // namespace ctl
