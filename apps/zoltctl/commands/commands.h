// The commands, one function each: they do what they say and print the result.
// All throw Failure.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "apps/zoltctl/command_line/phrase.h"
#include "apps/zoltctl/command_line/settings.h"

namespace ctl {

/// A command as it was given, its arguments checked.
struct Request {
    /// Which of the command's forms it is.
    std::size_t form = 0;
    Fields fields;
    /// The options of this command alone, by name; flags have an empty value.
    std::map<std::string, std::string> options;

    bool has(const std::string& option) const { return options.count(option) != 0; }
};

struct CommandOption {
    const char* name;
    const char* value;  ///< what stands behind it; null for a flag
    const char* purpose;
};

struct CommandRow {
    const char* name;
    const char* purpose;
    std::vector<std::string> forms;  ///< patterns as in phrase.h
    std::vector<CommandOption> options;
    void (*run)(const Settings& settings, const Request& request);
};

/// In the order in which --help shows them.
std::span<const CommandRow> commandRows();

void showCards(const Settings& settings, const Request& request);
void discover(const Settings& settings, const Request& request);
void poll(const Settings& settings, const Request& request);
void showInput(const Settings& settings, const Request& request);
void setBlock(const Settings& settings, const Request& request);
void lcd(const Settings& settings, const Request& request);
void infrared(const Settings& settings, const Request& request);
void watch(const Settings& settings, const Request& request);
void monitor(const Settings& settings, const Request& request);
void configureCard(const Settings& settings, const Request& request);
void setSpeed(const Settings& settings, const Request& request);
void showVersion(const Settings& settings, const Request& request);
void interactiveConsole(const Settings& settings, const Request& request);
void raw(const Settings& settings, const Request& request);

}  // namespace ctl
