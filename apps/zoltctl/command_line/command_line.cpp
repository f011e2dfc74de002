#include "apps/zoltctl/command_line/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <utility>

#include "apps/zoltctl/arguments/phrase.h"
#include "apps/zoltctl/command_line/options.h"
#include "apps/zoltctl/command_line/usage.h"
#include "apps/zoltctl/failure.h"
#include "lib/text/printable.h"

namespace zoltctl {
namespace {

/// More words than any command has: "poll on" with all sixteen addresses has the most.
constexpr std::size_t kMostWords = 20;

/// The parser's help, with the forms of a command as its usage.
class HelpText : public CLI::Formatter {
  public:
    std::string make_usage(const CLI::App* app, std::string name) const override {
        for (const CommandRow& row : commandRows()) {
            if (app->get_name() == row.name) {
                return usageOf(row) + "zoltctl --help shows the options of all commands.\n";
            }
        }
        return "Use: " + name + " [OPTION...] COMMAND [ARGUMENT...]\n" + "     " + name +
               " COMMAND --help\n";
    }
    std::string make_positionals(const CLI::App* /*app*/) const override { return ""; }
};

/// Keeps the parser's options and reads their values after it has parsed. Texts are taken
/// as they were given: the parser's own conversions drop empty ones and split "[a,b]".
class Parser {
  public:
    Parser() : app_("Client of the card bus daemon zolt.", "zoltctl") {
        const auto help = std::make_shared<HelpText>();
        app_.formatter(help);
        app_.fallthrough();
        // Otherwise "--json=false" would switch JSON on.
        app_.option_defaults()->disable_flag_override();
        app_.require_subcommand(1);
        app_.set_help_flag("--help", "print this text");
        app_.set_version_flag("--version", "zoltctl " ZOLTCTL_VERSION, "print the version");
        json_ = app_.add_flag("--json")->description("results as JSON");
        noCheck_ = app_.add_flag("--no-check")
                       ->description(
                           "set, lcd, ir: do not ask the console for the kind of the card "
                           "and for refusals");
        for (const OptionRow& row : optionRows()) {
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
            throw Failure(Status::kUsage, complaint(error) + " (see zoltctl --help)");
        }
        for (std::size_t i = 0; i < options_.size(); ++i) {
            invocation.given.*optionRows()[i].given = textOf(options_[i]);
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
        // Each word is an option of its own: then "--" before a word that begins with
        // "-" works.
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

    /// The arguments in reverse, as the parser takes them. "--option=" becomes two
    /// arguments: the parser would take the argument after it for its value.
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
            return (rest[0].starts_with('-') ? "unknown option " : "unknown command ") +
                   zolt_text::quote(rest[0]);
        }
        if (app_.get_subcommands().empty() && error.get_name() == "RequiredError") {
            return "a command is missing";
        }
        return zolt_text::printable(error.what());
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

}  // namespace zoltctl
