#include "ctl/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <utility>

#include "ctl/commands.h"
#include "ctl/failure.h"

namespace ctl {
namespace {

/// Where the parser puts the arguments of the commands.
struct Arguments {
    bool flag = false;
    std::string first;
    std::string second;
    std::string third;
    std::vector<std::string> words;
    std::optional<std::string> duration;
    std::optional<std::string> count;
};

using Shared = std::shared_ptr<Arguments>;

struct OptionRow {
    const char* name;
    const char* variable;
    const char* value;
    const char* purpose;
    std::optional<std::string>& (*target)(GivenSettings& given);
};

template <Port port>
std::optional<std::string>& portTarget(GivenSettings& given) {
    return given.ports[static_cast<std::size_t>(port)];
}

constexpr OptionRow kOptions[] = {
    {"--host", "ZOLT_HOST", "HOST", "where the daemon runs, default 127.0.0.1",
     [](GivenSettings& given) -> std::optional<std::string>& { return given.host; }},
    {"--cae-port", "ZOLT_CAE_PORT", "PORT", "the console's port, default 4001",
     portTarget<Port::kCae>},
    {"--io-port", "ZOLT_IO_PORT", "PORT", "the IO port, default 4002", portTarget<Port::kIo>},
    {"--mon-port", "ZOLT_MON_PORT", "PORT", "the monitor's port, default 4003",
     portTarget<Port::kMon>},
    {"--config", "ZOLT_CONFIG", "FILE",
     "configuration that gives ports and separators, default /etc/zolt/zoltconf.xml",
     [](GivenSettings& given) -> std::optional<std::string>& { return given.config; }},
    {"--line-end", "ZOLT_LINE_END", "END",
     "what ends a line that is sent: auto, crlf, lf, cr or the characters themselves",
     [](GivenSettings& given) -> std::optional<std::string>& { return given.lineEnd; }},
    {"--timeout", "ZOLT_TIMEOUT", "SECONDS", "the longest time for each wait, default 20",
     [](GivenSettings& given) -> std::optional<std::string>& { return given.timeout; }},
};

void addOptions(CLI::App& app, Invocation& invocation) {
    for (const OptionRow& row : kOptions) {
        app.add_option(row.name, row.target(invocation.given), row.purpose)
            ->envname(row.variable)
            ->type_name(row.value);
    }
    app.add_flag("--json", invocation.json, "results as JSON");
    app.add_flag_callback(
        "--no-check", [&invocation] { invocation.check = false; },
        "set, lcd, ir: do not use the console to check the card and learn of a refusal");
    app.set_version_flag("--version", "zoltctl " ZOLTCTL_VERSION, "print the version");
    app.set_help_flag("-h,--help", "print this text");
}

void addCardCommands(CLI::App& app, Invocation& invocation, const Shared& a) {
    CLI::App* cards = app.add_subcommand("cards", "show the card table");
    cards->add_flag("--all", a->flag, "also the addresses without a card");
    cards->callback([&invocation, a] {
        invocation.command = [a](const Settings& settings) { showCards(settings, a->flag); };
    });

    CLI::App* table = app.add_subcommand("discover", "show all sixteen addresses");
    table->add_flag("--force", a->flag, "identify the cards anew; takes 2 seconds");
    table->callback([&invocation, a] {
        invocation.command = [a](const Settings& settings) { discover(settings, a->flag); };
    });
}

void addDriverCommands(CLI::App& app, Invocation& invocation, const Shared& a) {
    CLI::App* speed = app.add_subcommand("speed", "set how fast the daemon's loops run");
    speed->add_option("PERCENT", a->first, "1 to 100")->required();
    speed->callback([&invocation, a] {
        invocation.command = [a](const Settings& settings) { setSpeed(settings, a->first); };
    });

    app.add_subcommand("version", "show the daemon's version")->callback([&invocation] {
        invocation.command = showVersion;
    });

    CLI::App* raw = app.add_subcommand("raw", "send a line as it stands");
    raw->require_subcommand(1);
    CLI::App* console = raw->add_subcommand("cae", "to the console, and show its reply");
    console->add_option("LINE", a->first, "without its end")->required();
    console->callback([&invocation, a] {
        invocation.command = [a](const Settings& settings) { rawConsole(settings, a->first); };
    });
}

/// The parser's complaint as one line.
std::string complaint(const CLI::ParseError& error) {
    std::string text = error.what();
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

}  // namespace

Invocation readCommandLine(const std::vector<std::string>& arguments) {
    Invocation invocation;
    const Shared shared = std::make_shared<Arguments>();
    CLI::App app("Client of the card bus daemon zolt.", "zoltctl");
    app.fallthrough();
    app.require_subcommand(1);
    addOptions(app, invocation);
    addCardCommands(app, invocation, shared);
    addDriverCommands(app, invocation, shared);
    try {
        // The parser takes them from the back.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::CallForHelp&) {
        invocation.text = app.help();
    } catch (const CLI::CallForVersion&) {
        invocation.text = app.version() + "\n";
    } catch (const CLI::ParseError& error) {
        throw Failure(Status::kUsage, complaint(error) + " (zoltctl --help tells the use)");
    }
    return invocation;
}

}  // namespace ctl
