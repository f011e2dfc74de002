#include "bus/card_kinds.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "fuzz/support/cards.h"
#include "tests/completeness/source_words.h"
#include "tests/support/text/hex_number.h"

void PrintTo(const CardKind& kind, std::ostream* out) {
    *out << kind.name;
}

namespace completeness {
namespace {

std::string classText(const CardKind& kind) {
    if (kind.cardClass == CardClass::kInput) return "input, polled";
    return kind.cardClass == CardClass::kOutput ? "output" : "none";
}

class EveryCardKind : public testing::TestWithParam<CardKind> {};

TEST_P(EveryCardKind, HasItsNameInTheClientsDocument) {
    EXPECT_NE(sourceFile("docs/clients.md").find(GetParam().name), std::string::npos)
        << "docs/clients.md";
}

TEST_P(EveryCardKind, HasItsRowInTheBusDocument) {
    const CardKind& kind = GetParam();
    const std::string document = sourceFile("docs/card-bus.md");
    const std::size_t start =
        document.find("\n| " + support::hexNumber(static_cast<unsigned>(kind.code), 2) + " | ");
    ASSERT_NE(start, std::string::npos) << "docs/card-bus.md";
    const std::string row = document.substr(start + 1, document.find('\n', start + 1) - start - 1);
    const std::string outputs =
        kind.outputValues == 0 ? " " : " " + std::to_string(kind.outputValues) + " ";
    const std::string end =
        " | " + classText(kind) + " | " + std::to_string(kind.dataLength) + " |" + outputs + "|";
    EXPECT_TRUE(row.ends_with(end)) << row << " does not end with" << end;
}

TEST_P(EveryCardKind, IsOnTheBusOfTheFuzzers) {
    EXPECT_NE(std::find(fuzz::kKinds.begin(), fuzz::kKinds.end(), GetParam().code),
              fuzz::kKinds.end())
        << "fuzz/support/cards.h";
}

INSTANTIATE_TEST_SUITE_P(Table, EveryCardKind,
                         testing::ValuesIn(cardKinds().begin(), cardKinds().end()),
                         [](const auto& tested) {
                             return "Code" + std::to_string(tested.param.code);
                         });

}  // namespace
}  // namespace completeness
