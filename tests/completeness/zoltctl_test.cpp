#include <gtest/gtest.h>

#include <filesystem>

#include "apps/zoltctl/commands/commands.h"
#include "tests/completeness/source_words.h"
#include "tests/support/files.h"

namespace completeness {
namespace {

/// The sources of the tests that run the program.
std::string testsOfTheProgram() {
    std::string text;
    const std::filesystem::path folder = std::filesystem::path(ZOLT_SOURCE_DIR) / "tests/zoltctl";
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        if (file.path().extension() == ".cpp") text += support::readFile(file.path());
    }
    return text;
}

class EveryCommandOfZoltctl : public testing::TestWithParam<std::string> {};

TEST_P(EveryCommandOfZoltctl, IsRunByATest) {
    EXPECT_NE(testsOfTheProgram().find("\"" + GetParam() + "\""), std::string::npos)
        << "tests/zoltctl/*.cpp";
}

TEST_P(EveryCommandOfZoltctl, IsInTheTableOfTheCompletions) {
    EXPECT_NE(sourceFile("tests/zoltctl/completion/words").find("\nzoltctl " + GetParam() + " "),
              std::string::npos)
        << "tests/zoltctl/completion/words";
}

TEST_P(EveryCommandOfZoltctl, HasItsJsonInTheManualPage) {
    const std::string page = sourceFile("apps/zoltctl/zoltctl.1.scd");
    const std::size_t section = page.find("\n# JSON\n");
    ASSERT_NE(section, std::string::npos);
    EXPECT_NE(page.find("*" + GetParam(), section), std::string::npos)
        << "apps/zoltctl/zoltctl.1.scd";
}

std::vector<std::string> commandNames() {
    std::vector<std::string> names;
    for (const auto& row : zoltctl::commandRows()) names.emplace_back(row.name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(Table, EveryCommandOfZoltctl, testing::ValuesIn(commandNames()),
                         [](const auto& tested) { return tested.param; });

}  // namespace
}  // namespace completeness
