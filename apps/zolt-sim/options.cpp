#include "apps/zolt-sim/options.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace sim {
namespace {

constexpr unsigned kHighestBaud = 100000000;

void readBaud(Options& options, const std::string& value) {
    const auto baud = parseDecimal(value, kHighestBaud);
    if (!baud) {
        throw std::invalid_argument("--baud takes a decimal number, not \"" + value + "\"");
    }
    options.baud = *baud;
}

void readFilter(Options& options, const std::string& value) {
    const auto filter = parseTraceFilter(value);
    if (!filter) {
        throw std::invalid_argument("--trace takes all, commands or none, not \"" + value + "\"");
    }
    options.filter = *filter;
}

struct OptionRow {
    std::string_view name;
    std::string_view argument;  // empty: takes none
    std::string_view purpose;
    void (*read)(Options& options, const std::string& value);
};

constexpr OptionRow kOptions[] = {
    {"--bus", "FILE", "which card sits at which address (required)",
     [](Options& options, const std::string& value) { options.busFile = value; }},
    {"--link", "PATH", "name of the adapter, such as /dev/ttyUSB0 (required)",
     [](Options& options, const std::string& value) { options.link = value; }},
    {"--baud", "N", "speed of the line, default 460800; 0 answers at once", readBaud},
    {"--control", "PATH", "listens for controls on this Unix socket",
     [](Options& options, const std::string& value) { options.controlPath = value; }},
    {"--trace", "WHAT", "all, commands (default: no polls) or none", readFilter},
    {"--trace-file", "PATH", "writes the whole trace into this file",
     [](Options& options, const std::string& value) { options.traceFile = value; }},
    {"--scenario", "FILE", "plays timed controls",
     [](Options& options, const std::string& value) { options.scenarioFile = value; }},
    {"--help", "", "prints this text",
     [](Options& options, const std::string&) { options.help = true; }},
    {"--version", "", "prints the version",
     [](Options& options, const std::string&) { options.version = true; }},
};

}  // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::size_t equals = arguments[i].find('=');
        const std::string name = arguments[i].substr(0, equals);
        const auto* row = std::find_if(std::begin(kOptions), std::end(kOptions),
                                       [&](const OptionRow& entry) { return entry.name == name; });
        if (row == std::end(kOptions)) {
            throw std::invalid_argument("unknown argument \"" + arguments[i] + "\"");
        }
        const bool attached = equals != std::string::npos;
        if (row->argument.empty()) {
            if (attached) {
                throw std::invalid_argument(name + " takes no value");
            }
            row->read(options, "");
            continue;
        }
        if (!attached && i + 1 == arguments.size()) {
            throw std::invalid_argument(name + " needs " + std::string(row->argument));
        }
        const std::string value = attached ? arguments[i].substr(equals + 1) : arguments[++i];
        if (value.empty()) {
            throw std::invalid_argument(name + " needs " + std::string(row->argument));
        }
        row->read(options, value);
    }
    if (!options.help && !options.version && (options.busFile.empty() || options.link.empty())) {
        throw std::invalid_argument("--bus and --link are required");
    }
    return options;
}

std::string optionsHelp() {
    constexpr std::size_t kColumn = 22;
    std::string text =
        "zolt-sim: a card bus without hardware, behind a pseudo-terminal.\n"
        "Use: zolt-sim --bus FILE --link PATH [options]\n\n";
    for (const OptionRow& row : kOptions) {
        std::string line = "  " + std::string(row.name) + " " + std::string(row.argument);
        line.resize(std::max(line.size() + 1, kColumn), ' ');
        text += line + std::string(row.purpose) + "\n";
    }
    return text +
           "\nControls are read from the standard input, one per line; \"help\" lists them.\n";
}

}  // namespace sim
