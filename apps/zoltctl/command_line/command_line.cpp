#include "apps/zoltctl/command_line/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <utility>

#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/text.h"

namespace ctl {
namespace {

/// More words than any command has: poll with the sixteen addresses has most.
constexpr std::size_t kMostWords = 20;

struct OptionRow {
    const char* name;
    const char* variable;
    const char* value;
    const char* purpose;
    std::optional<std::string>& (*target)(GivenSettings& given);
};

template <std::optional<std::string> GivenSettings::*member>
std::optional<std::string>& memberTarget(GivenSettings& given) {
    return given.*member;
}

template <Port port>
std::optional<std::string>& portTarget(GivenSettings& given) {
    return given.ports[static_cast<std::size_t>(port)];
}

constexpr std::array kOptions{
    OptionRow{"--host", "ZOLT_HOST", "HOST", "where the daemon runs, default 127.0.0.1",
              memberTarget<&GivenSettings::host>},
    OptionRow{"--cae-port", "ZOLT_CAE_PORT", "PORT", "the console's port, default 4001",
              portTarget<Port::kCae>},
    OptionRow{"--io-port", "ZOLT_IO_PORT", "PORT", "the IO port, default 4002",
              portTarget<Port::kIo>},
    OptionRow{"--mon-port", "ZOLT_MON_PORT", "PORT", "the monitor's port, default 4003",
              portTarget<Port::kMon>},
    OptionRow{"--config", "ZOLT_CONFIG", "FILE",
              "gives ports and separators, default /etc/zolt/zoltconf.xml",
              memberTarget<&GivenSettings::config>},
    OptionRow{"--line-end", "ZOLT_LINE_END", "END",
              "what ends a line that is sent: auto, crlf, lf, cr or the characters themselves",
              memberTarget<&GivenSettings::lineEnd>},
    OptionRow{"--timeout", "ZOLT_TIMEOUT", "SECONDS", "longest time of each wait, default 20",
              memberTarget<&GivenSettings::timeout>},
};

/// The forms of a command and what its parameters are.
std::string formsText(const CommandRow& row) {
    std::string text;
    std::vector<std::string> names;
    for (const std::string& form : row.forms) {
        text += (text.empty() ? "Use: " : "     ") + ("zoltctl " + form) + "\n";
        for (const std::string& name : parameterNames(form)) {
            if (std::find(names.begin(), names.end(), name) == names.end()) {
                names.push_back(name);
            }
        }
    }
    text += '\n';
    for (const std::string& name : names) {
        constexpr std::size_t kColumn = 12;
        std::string line = "  " + name;
        line.resize(std::max(line.size() + 1, kColumn), ' ');
        text += line + parameterOf(name)->what + '\n';
    }
    return text + (names.empty() ? "" : "\n");
}

/// The parser's help, with the forms of a command for its usage.
class HelpText : public CLI::Formatter {
  public:
    std::string make_usage(const CLI::App* app, std::string name) const override {
        for (const CommandRow& row : commandRows()) {
            if (app->get_name() == row.name) {
                return formsText(row) + "zoltctl --help tells the options of every command.\n";
            }
        }
        return "Use: " + name + " [OPTION...] COMMAND [ARGUMENT...]\n" + "     " + name +
               " COMMAND --help\n";
    }
    std::string make_positionals(const CLI::App* /*app*/) const override { return ""; }
};

/// The parser's options, kept to be asked once it has parsed. Texts are taken as
/// they were given: its own conversions drop empty ones and split "[a,b]".
class Parser {
  public:
    Parser() : app_("Client of the card bus daemon zolt.", "zoltctl") {
        const auto help = std::make_shared<HelpText>();
        app_.formatter(help);
        app_.fallthrough();
        // Otherwise "--json=false" would ask for it, too.
        app_.option_defaults()->disable_flag_override();
        app_.require_subcommand(1);
        app_.set_help_flag("--help", "print this text");
        app_.set_version_flag("--version", "zoltctl " ZOLTCTL_VERSION, "print the version");
        json_ = app_.add_flag("--json")->description("results as JSON");
        noCheck_ = app_.add_flag("--no-check")
                       ->description(
                           "set, lcd, ir: do not use the console to check the card and "
                           "to learn of a refusal");
        for (const OptionRow& row : kOptions) {
            options_.push_back(app_.add_option(row.name)
                                   ->description(row.purpose)
                                   ->type_name(row.value)
                                   ->envname(row.variable));
        }
        for (const CommandRow& row : commandRows()) {
            addCommand(row);
        }
    }

    Invocation parse(const std::vector<std::string>& arguments) {
        Invocation invocation;
        try {
            app_.parse(prepared(arguments));
        } catch (const CLI::CallForHelp&) {
            invocation.text = app_.help();
            return invocation;
        } catch (const CLI::CallForVersion&) {
            invocation.text = app_.version() + "\n";
            return invocation;
        } catch (const CLI::ParseError& error) {
            throw Failure(Status::kUsage, complaint(error) + " (zoltctl --help tells the use)");
        }
        for (std::size_t i = 0; i < kOptions.size(); ++i) {
            kOptions[i].target(invocation.given) = textOf(options_[i]);
        }
        invocation.json = json_->count() > 0;
        invocation.check = noCheck_->count() == 0;
        takeCommand(invocation);
        return invocation;
    }

  private:
    struct Command {
        CLI::App* app;
        std::vector<CLI::Option*> words;
        std::vector<CLI::Option*> options;
    };

    void addCommand(const CommandRow& row) {
        Command command{app_.add_subcommand(row.name, row.purpose), {}, {}};
        command.app->group("Commands");
        command.app->set_help_flag("--help", "print this text");
        // One by one, so that "--" in front of a word that begins with "-" works.
        for (std::size_t i = 0; i < kMostWords; ++i) {
            command.words.push_back(command.app->add_option("word" + std::to_string(i)));
        }
        for (const CommandOption& option : row.options) {
            CLI::Option* added = option.value == nullptr ? command.app->add_flag(option.name)
                                                         : command.app->add_option(option.name);
            added->description(option.purpose);
            if (option.value != nullptr) {
                added->type_name(option.value);
            }
            command.options.push_back(added);
        }
        commands_.push_back(command);
    }

    /// From the back, as the parser takes them. To it an empty value behind "=" is
    /// none, and the next argument becomes the value; as an argument of its own it
    /// is one.
    std::vector<std::string> prepared(const std::vector<std::string>& arguments) const {
        std::vector<std::string> words;
        const auto end = std::find(arguments.begin(), arguments.end(), "--");
        for (auto word = arguments.begin(); word != arguments.end(); ++word) {
            const bool empty = word < end && word->size() > 1 && word->back() == '=' &&
                               takesValue(word->substr(0, word->size() - 1));
            words.push_back(empty ? word->substr(0, word->size() - 1) : *word);
            if (empty) {
                words.emplace_back();
            }
        }
        return {words.rbegin(), words.rend()};
    }

    bool takesValue(const std::string& name) const {
        const auto fits = [&](const CLI::Option* option) {
            return option->get_name() == name && option->get_items_expected() > 0;
        };
        return std::any_of(options_.begin(), options_.end(), fits) ||
               std::any_of(commands_.begin(), commands_.end(), [&](const Command& command) {
                   return std::any_of(command.options.begin(), command.options.end(), fits);
               });
    }

    static std::optional<std::string> textOf(const CLI::Option* option) {
        return option->count() == 0 ? std::nullopt : std::optional(option->results()[0]);
    }

    void takeCommand(Invocation& invocation) const {
        for (std::size_t i = 0; i < commands_.size(); ++i) {
            const Command& command = commands_[i];
            if (!command.app->parsed()) {
                continue;
            }
            const CommandRow& row = commandRows()[i];
            invocation.row = &row;
            std::vector<std::string> words{row.name};
            for (const CLI::Option* option : command.words) {
                if (const auto word = textOf(option)) {
                    words.push_back(*word);
                }
            }
            const Phrase phrase = matchPhrase(words, row.forms);
            invocation.request.form = phrase.index;
            invocation.request.fields = phrase.fields;
            for (std::size_t n = 0; n < command.options.size(); ++n) {
                if (const auto value = textOf(command.options[n])) {
                    invocation.request.options[row.options[n].name] = *value;
                }
            }
        }
    }

    /// The parser's complaint as one line.
    std::string complaint(const CLI::ParseError& error) const {
        const std::vector<std::string> rest = app_.remaining(true);
        if (!rest.empty()) {
            return quote(rest[0]) + (startsWith(rest[0], "-") ? " is no option" : " is no command");
        }
        if (app_.get_subcommands().empty() && error.get_name() == "RequiredError") {
            return "a command is missing";
        }
        return printable(error.what());
    }

    CLI::App app_;
    CLI::Option* json_ = nullptr;
    CLI::Option* noCheck_ = nullptr;
    std::vector<CLI::Option*> options_;
    std::vector<Command> commands_;
};

}  // namespace

Invocation readCommandLine(const std::vector<std::string>& arguments) {
    return Parser().parse(arguments);
}

}  // namespace ctl
