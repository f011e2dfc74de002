#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include "core/config_schema.h"
#include "tests/completeness/source_words.h"

namespace completeness {
namespace {

/// One name of the configuration file.
struct Name {
    std::string text;
    bool isElement;
};

void PrintTo(const Name& name, std::ostream* out) {
    *out << name.text;
}

std::vector<Name> names() {
    std::vector<Name> all{{config_schema::kRoot, true}, {config_schema::kInterfaces, true}};
    const auto add = [&all](const char* text, bool isElement) {
        const bool isKnown = std::any_of(all.begin(), all.end(),
                                         [text](const Name& name) { return name.text == text; });
        if (!isKnown) all.push_back({text, isElement});
    };
    for (const config_schema::Setting& row : config_schema::settings()) {
        add(row.element, true);
        add(row.attribute, false);
    }
    for (const config_schema::EntryAttribute& row : config_schema::entryAttributes()) {
        add(row.name, false);
    }
    return all;
}

class EveryNameOfTheConfiguration : public testing::TestWithParam<Name> {
  protected:
    /// The text as an XML file has it.
    static std::string written() {
        return GetParam().isElement ? "<" + GetParam().text : " " + GetParam().text + "=\"";
    }
    static void expectIn(const std::string& path, const std::string& text) {
        EXPECT_NE(sourceFile(path).find(text), std::string::npos) << path;
    }
};

TEST_P(EveryNameOfTheConfiguration, IsInTheDocument) {
    expectIn("docs/configuration.md", "`" + GetParam().text + "`");
}

TEST_P(EveryNameOfTheConfiguration, IsInTheManualPage) {
    const std::string start = GetParam().isElement ? "\n## " : "\n*";
    const bool isRoot = GetParam().text == config_schema::kRoot;
    expectIn("src/zoltconf.xml.5.scd", isRoot ? "*" + GetParam().text : start + GetParam().text);
    expectIn("src/zoltconf.xml.5.scd", written());
}

TEST_P(EveryNameOfTheConfiguration, IsInTheSample) {
    expectIn("docs/zoltconf.xml", written());
}

TEST_P(EveryNameOfTheConfiguration, IsAWordOfTheFuzzer) {
    const std::string word = GetParam().isElement ? written() : " " + GetParam().text + "=\\x22";
    expectIn("fuzz/dictionaries/configuration.dict", "\n\"" + word);
}

INSTANTIATE_TEST_SUITE_P(Schema, EveryNameOfTheConfiguration, testing::ValuesIn(names()),
                         [](const auto& tested) { return tested.param.text; });

// scdoc needs two backslashes for one.
TEST(SampleConfiguration, IsTheOneOfTheManualPage) {
    const std::string page = sourceFile("src/zoltconf.xml.5.scd");
    const std::size_t start = page.find("\n```\n") + 5;
    std::string example = page.substr(start, page.find("```\n", start) - start);
    for (std::size_t at = example.find("\\\\"); at != std::string::npos;
         at = example.find("\\\\", at + 1)) {
        example.erase(at, 1);
    }
    EXPECT_EQ(example, sourceFile("docs/zoltconf.xml"));
}

}  // namespace
}  // namespace completeness
