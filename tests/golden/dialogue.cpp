#include "tests/golden/dialogue.h"

#include <algorithm>
#include <stdexcept>

#include "tests/golden/boot.h"
#include "tests/golden/dialogue_settings.h"
#include "tests/golden/stage.h"
#include "tests/support/files.h"

namespace golden {
namespace {

constexpr const char* kIndentation = "    ";

std::string trimmedEnd(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

}  // namespace

Dialogue Dialogue::parse(const std::string& name, const std::string& text) {
    Dialogue dialogue;
    dialogue.name_ = name;
    int number = 0;
    for (const auto& line : support::splitLines(text.ends_with('\n') ? text : text + '\n')) {
        ++number;
        SourceLine source{line};
        try {
            dialogue.readLine(source, number);
        } catch (const std::exception& error) {
            throw std::invalid_argument(name + ':' + std::to_string(number) + ": " + error.what());
        }
        dialogue.lines_.push_back(source);
    }
    if (dialogue.steps_.empty()) throw std::invalid_argument(name + ": no action");
    return dialogue;
}

void Dialogue::readLine(SourceLine& source, int number) {
    const auto start = source.text.find_first_not_of(' ');
    if (start == std::string::npos || source.text[start] == '#') return;
    const std::string text = trimmedEnd(source.text.substr(start));
    if (start > 0) {
        if (steps_.empty()) throw std::invalid_argument("an expectation before the first action");
        steps_.back().expected.push_back(readItem(text));
        source.expectation = true;
        return;
    }
    const auto blank = std::min(text.find(' '), text.size());
    const std::string word = text.substr(0, blank);
    const std::string argument =
        text.substr(std::min(text.find_first_not_of(' ', blank), text.size()));
    if (word == "settle") {
        settle_ = readSeconds(argument);
    } else if (Stage::hasAction(word)) {
        source.action = true;
        steps_.push_back({number, word, argument, {}, {}, settle_});
        if (word == "boot") steps_.back().implied = bootItems(setup_, bootClients(argument));
    } else if (steps_.empty()) {
        applySetting(setup_, word, argument);
    } else {
        throw std::invalid_argument("unknown action \"" + word + "\"");
    }
}

std::string Dialogue::withExpectations(const std::vector<std::vector<Item>>& perStep) const {
    std::string text;
    std::size_t step = 0;
    for (const auto& line : lines_) {
        if (line.expectation) continue;
        text += line.text + '\n';
        if (!line.action) continue;
        for (const auto& item : withoutImplied(perStep.at(step), steps_[step].implied)) {
            text += kIndentation + writeItem(item) + '\n';
        }
        ++step;
    }
    return text;
}

}  // namespace golden
