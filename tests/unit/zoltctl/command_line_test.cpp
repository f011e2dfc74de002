#include "apps/zoltctl/command_line/command_line.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/unit/zoltctl/failure_of.h"

using namespace zoltctl;

namespace {

std::string complaint(const std::vector<std::string>& arguments) {
    return failureOf([&] { readCommandLine(arguments); });
}

}  // namespace

TEST(CommandLine, OptionsComeBeforeOrAfterTheCommand) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--host", "a", "--json", "set", "5", "1", "FB"},
          {"set", "5", "1", "FB", "--json", "--host=a"},
          {"set", "5", "--json", "1", "--host", "a", "FB"}}) {
        const Invocation invocation = readCommandLine(arguments);
        ASSERT_NE(invocation.row, nullptr);
        EXPECT_STREQ(invocation.row->name, "set");
        EXPECT_EQ(invocation.request.fields.address(), '5');
        EXPECT_EQ(invocation.request.fields.card.value, 0xFB);
        EXPECT_EQ(invocation.given.host, "a");
        EXPECT_TRUE(invocation.json);
        EXPECT_TRUE(invocation.check);
    }
    EXPECT_FALSE(readCommandLine({"set", "5", "1", "FB", "--no-check"}).check);
}

TEST(CommandLine, OptionsOfOneCommand) {
    const Request request = readCommandLine({"watch", "--for", "1.5", "--no-names"}).request;
    EXPECT_EQ(request.options.at("--for"), "1.5");
    EXPECT_TRUE(request.has("--no-names"));
    EXPECT_FALSE(request.has("--count"));
}

TEST(CommandLine, OptionsComeBeforeTheEnvironment) {
    ::setenv("ZOLT_HOST", "from-environment", 1);
    ::setenv("ZOLT_MON_PORT", "5", 1);
    const GivenSettings given = readCommandLine({"cards"}).given;
    EXPECT_EQ(given.host, "from-environment");
    EXPECT_EQ(given.monPort, "5");
    EXPECT_EQ(given.caePort, std::nullopt);
    EXPECT_EQ(readCommandLine({"cards", "--host", "b"}).given.host, "b");
    ::unsetenv("ZOLT_HOST");
    ::unsetenv("ZOLT_MON_PORT");
}

TEST(CommandLine, TextsAreTakenAsTheyAre) {
    const auto text = [](const std::vector<std::string>& arguments) {
        return readCommandLine(arguments).request.fields.text;
    };
    EXPECT_EQ(text({"lcd", "E", "text", "0", "0", "[a,b]"}), "[a,b]");
    EXPECT_EQ(text({"lcd", "E", "text", "0", "0", ""}), "");
    EXPECT_EQ(text({"lcd", "E", "text", "0", "0", "--", "-5 C"}), "-5 C");
    EXPECT_EQ(text({"lcd", "E", "text", "0", "0", "cards"}), "cards");
    EXPECT_EQ(text({"raw", "cae", "--", "--json"}), "--json");
    EXPECT_EQ(readCommandLine({"cards", "--line-end", ""}).given.lineEnd, "");
    EXPECT_EQ(text({"raw", "cae", "--", "--line-end="}), "--line-end=");
}

TEST(CommandLine, NothingAfterAnEqualsSignIsAnEmptyValue) {
    const Invocation invocation =
        readCommandLine({"--line-end=", "--timeout", "1", "watch", "--count=", "--for=2"});
    EXPECT_EQ(invocation.given.lineEnd, "");
    EXPECT_EQ(invocation.given.timeout, "1");
    EXPECT_EQ(invocation.request.options,
              (std::map<std::string, std::string>{{"--count", ""}, {"--for", "2"}}));
    EXPECT_EQ(complaint({"cards", "--zz="}).substr(0, 22), "2 unknown option \"--zz");
}

TEST(CommandLine, PollTakesAllAddresses) {
    std::vector<std::string> arguments{"poll", "on"};
    for (const char digit : std::string("0123456789ABCDEF")) {
        arguments.emplace_back(1, digit);
    }
    EXPECT_EQ(readCommandLine(arguments).request.fields.addresses, "0123456789ABCDEF");
}

TEST(CommandLine, WrongUseIsOneLine) {
    const std::string hint = " (see zoltctl --help)";
    EXPECT_EQ(complaint({}), "2 a command is missing" + hint);
    EXPECT_EQ(complaint({"zz"}), "2 unknown command \"zz\"" + hint);
    EXPECT_EQ(complaint({"--zz"}), "2 unknown option \"--zz\"" + hint);
    EXPECT_EQ(complaint({"cards", "--zz"}), "2 unknown option \"--zz\"" + hint);
    EXPECT_EQ(complaint({"cards", "--force"}), "2 unknown option \"--force\"" + hint);
    EXPECT_EQ(complaint({"cards", "x"}), "2 \"x\" is one argument too many");
    EXPECT_EQ(complaint({"cards", "--timeout"}).substr(0, 12), "2 --timeout:");
    EXPECT_EQ(complaint({"cards", "--json=false"}).substr(0, 7), "2 json ");
    EXPECT_EQ(complaint({"cards", "--all=no"}).substr(0, 6), "2 all ");
}

TEST(CommandLine, HelpAndVersionAreTexts) {
    EXPECT_EQ(readCommandLine({"--version"}).text, "zoltctl 1.20\n");
    const std::string help = readCommandLine({"--help"}).text;
    EXPECT_NE(help.find("\nCommands:\n  cards "), std::string::npos) << help;
    for (const CommandRow& row : commandRows()) {
        EXPECT_NE(help.find(std::string("\n  ") + row.name + " "), std::string::npos) << row.name;
        const std::string own = readCommandLine({row.name, "--help"}).text;
        for (const std::string& form : row.forms) {
            EXPECT_NE(own.find("zoltctl " + form + "\n"), std::string::npos) << form;
        }
    }
}
