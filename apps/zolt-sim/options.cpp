#include "apps/zolt-sim/options.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>

#include "apps/zolt-sim/error.h"
#include "lib/text/decimal.h"
#include "lib/text/printable.h"

namespace zolt_sim {
namespace {

/// Far above any serial port, and low enough for the arithmetic with nanoseconds.
constexpr unsigned kHighestBaud = 100000000;

/// The parser's help, with the required options in the usage.
class HelpText : public CLI::Formatter {
  public:
    std::string make_usage(const CLI::App* /*app*/, std::string name) const override {
        return "Use: " + name + " --bus FILE --link PATH [OPTION...]\n";
    }
};

/// A check of an option's value; `problem` returns what is wrong with the value, or an
/// empty text.
CLI::Validator validator(const std::function<std::string(const std::string&)>& problem) {
    return CLI::Validator([problem](const std::string& value) { return problem(value); }, "");
}

std::string problemOfText(const std::string& value) {
    return value.empty() ? "the value is empty" : "";
}

std::string problemOfBaud(const std::string& value) {
    return zolt_text::parseDecimal(value, kHighestBaud)
               ? ""
               : zolt_text::quote(value) + " is not a decimal number from 0 to " +
                     std::to_string(kHighestBaud);
}

std::string problemOfFilter(const std::string& value) {
    return parseTraceFilter(value) ? "" : zolt_text::quote(value) + " is not all, commands or none";
}

/// The parser's complaint as one line.
std::string complaint(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> rest = app.remaining();
    if (rest.empty()) {
        return zolt_text::printable(error.what());
    }
    return (rest[0].starts_with("-") ? "unknown option " : "unexpected argument ") +
           zolt_text::quote(rest[0]);
}

/// The values of options that are not taken as they are.
struct RawValues {
    std::string baud;
    std::string filter;
};

/// Declares all options; the parser writes their values into `options` and `raw`.
void declareOptions(CLI::App& app, Options& options, RawValues& raw) {
    const auto add = [&app](const char* name, std::string& target, const char* value,
                            const char* purpose, std::string (*problem)(const std::string&)) {
        return app.add_option(name, target, purpose)->type_name(value)->check(validator(problem));
    };
    app.option_defaults()->disable_flag_override()->multi_option_policy(
        CLI::MultiOptionPolicy::TakeLast);
    add("--bus", options.busFile, "FILE", "which card is at which address", problemOfText)
        ->required();
    add("--link", options.link, "PATH", "name of the adapter, such as /dev/ttyUSB0", problemOfText)
        ->required();
    add("--baud", raw.baud, "N", "speed of the wire, default 460800; 0 answers at once",
        problemOfBaud);
    add("--control", options.controlPath, "PATH", "listens for controls on this Unix socket",
        problemOfText);
    add("--trace", raw.filter, "WHAT",
        "what is printed: all, commands (the default, without polls) or none", problemOfFilter);
    add("--trace-file", options.traceFile, "PATH", "writes the whole trace into this file",
        problemOfText);
    add("--scenario", options.scenarioFile, "FILE", "plays timed controls", problemOfText);
    app.set_help_flag("--help", "prints this text");
    app.set_version_flag("--version", "zolt-sim " ZOLT_SIM_VERSION, "prints the version");
}

/// The arguments in reverse, as the parser takes them. "--option=" becomes two arguments:
/// the parser would take the argument after it for its value.
std::vector<std::string> prepared(const CLI::App& app, const std::vector<std::string>& arguments) {
    std::vector<std::string> words;
    for (const std::string& argument : arguments) {
        const std::string name = argument.substr(0, argument.find('='));
        const CLI::Option* option =
            argument.starts_with("--") ? app.get_option_no_throw(name) : nullptr;
        const bool empty = option != nullptr && option->get_items_expected() > 0 &&
                           argument.size() == name.size() + 1;
        words.push_back(empty ? name : argument);
        if (empty) {
            words.emplace_back();
        }
    }
    return {words.rbegin(), words.rend()};
}

}  // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    RawValues raw;
    CLI::App app("A card bus without hardware, on a pseudo-terminal.", "zolt-sim");
    app.formatter(std::make_shared<HelpText>());
    app.footer("Controls are read from the standard input, one per line; \"help\" lists them.");
    declareOptions(app, options, raw);
    try {
        app.parse(prepared(app, arguments));
    } catch (const CLI::CallForHelp&) {
        options.text = app.help();
        return options;
    } catch (const CLI::CallForVersion&) {
        options.text = app.version() + "\n";
        return options;
    } catch (const CLI::ParseError& error) {
        throw Error(complaint(app, error) + " (zolt-sim --help lists the options)",
                    ExitStatus::kWrongUse);
    }
    if (!raw.baud.empty()) {
        options.baud = *zolt_text::parseDecimal(raw.baud, kHighestBaud);
    }
    if (!raw.filter.empty()) {
        options.filter = *parseTraceFilter(raw.filter);
    }
    return options;
}

}  // namespace zolt_sim
