#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "apps/zoltctl/arguments/parameters.h"
#include "apps/zoltctl/arguments/settings.h"

namespace zoltctl {

/// A command as it was given, its arguments checked.
struct Request {
    /// The position of the form among the forms of the command.
    std::size_t form = 0;
    Fields fields;
    /// The options of this command alone, by name; flags have an empty value.
    std::map<std::string, std::string> options;

    bool has(const std::string& option) const { return options.count(option) != 0; }
};

struct CommandOption {
    const char* name;
    const char* value;  ///< the name of its value; null for a flag
    const char* purpose;
};

struct CommandRow {
    const char* name;
    const char* purpose;
    std::vector<std::string> forms;  ///< patterns as in phrase.h
    std::vector<CommandOption> options;
    /// Carries the command out and prints the result. Throws Failure or
    /// zolt_ports::PortError.
    void (*run)(const Settings& settings, const Request& request);
};

/// The patterns of a table of forms. The command finds the form that was given in the same
/// table, at Request::form.
template <typename Form>
std::vector<std::string> patternsOf(std::span<const Form> forms) {
    std::vector<std::string> patterns;
    for (const Form& form : forms) {
        patterns.emplace_back(form.pattern);
    }
    return patterns;
}

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

}  // namespace zoltctl
