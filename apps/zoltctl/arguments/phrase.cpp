#include "apps/zoltctl/arguments/phrase.h"

#include <algorithm>
#include <sstream>
#include <string_view>

#include "apps/zoltctl/failure.h"
#include "lib/text/alternatives.h"
#include "lib/text/printable.h"

namespace zoltctl {

using zolt_text::alternatives;
using zolt_text::printable;
using zolt_text::quote;

namespace {

/// The words of a pattern.
struct Form {
    std::vector<std::string> tokens;
    bool lastOptional = false;
    bool lastRepeated = false;

    explicit Form(const std::string& pattern) {
        std::istringstream stream(pattern);
        for (std::string token; stream >> token;) {
            tokens.push_back(token);
        }
        std::string& last = tokens.back();
        if (last[0] == '[') {
            lastOptional = true;
            lastRepeated = last.find("...") != std::string::npos;
            last = last.substr(1, last.find_first_of(".]") - 1);
        }
    }

    /// Null after the last token.
    const std::string* at(std::size_t position) const {
        if (position < tokens.size()) {
            return &tokens[position];
        }
        return lastRepeated ? &tokens.back() : nullptr;
    }
    bool endsAt(std::size_t position) const {
        return position >= tokens.size() || (lastOptional && position + 1 == tokens.size());
    }
};

bool readWord(const std::string& word, const std::string& token, Fields& fields) {
    const Parameter* parameter = parameterOf(token);
    return parameter != nullptr ? parameter->read(word, fields) : word == token;
}

/// The tokens that the patterns allow at the first word that none of them allows.
struct Expected {
    std::size_t depth = 0;
    std::vector<std::string> tokens;  ///< empty if the command ends there

    void add(std::size_t at, const std::string& token) {
        if (at > depth) {
            depth = at;
            tokens.clear();
        }
        if (at == depth && !token.empty() &&
            std::find(tokens.begin(), tokens.end(), token) == tokens.end()) {
            tokens.push_back(token);
        }
    }
};

Failure complaint(const std::vector<std::string>& words, const Expected& expected) {
    const auto usage = [](const std::string& text) { return Failure(Status::kUsage, text); };
    if (expected.depth == words.size()) {
        std::string said;
        for (const std::string& word : words) {
            said += (said.empty() ? "" : " ") + printable(word);
        }
        return usage(alternatives(expected.tokens) + " is missing after \"" + said + '"');
    }
    const std::string word = quote(words[expected.depth]);
    if (expected.tokens.empty()) {
        return usage(word + " is one argument too many");
    }
    const Parameter* parameter = parameterOf(expected.tokens[0]);
    if (expected.tokens.size() == 1 && parameter != nullptr) {
        return usage(word + " is not " + parameter->noun + " (" + parameter->form + ")");
    }
    return usage(word + " is not expected here; expected: " + alternatives(expected.tokens));
}

}  // namespace

Phrase matchPhrase(const std::vector<std::string>& words,
                   const std::vector<std::string>& patterns) {
    Expected expected;
    for (std::size_t index = 0; index < patterns.size(); ++index) {
        const Form form(patterns[index]);
        Fields fields;
        std::size_t at = 0;
        while (at < words.size() && form.at(at) != nullptr &&
               readWord(words[at], *form.at(at), fields)) {
            ++at;
        }
        if (at == words.size() && form.endsAt(at)) {
            return {index, fields};
        }
        expected.add(at, form.at(at) == nullptr ? "" : *form.at(at));
    }
    throw complaint(words, expected);
}

std::vector<std::string> parameterNames(const std::string& pattern) {
    std::vector<std::string> names = Form(pattern).tokens;
    names.erase(std::remove_if(names.begin(), names.end(),
                               [](const std::string& name) { return !parameterOf(name); }),
                names.end());
    return names;
}

}  // namespace zoltctl
