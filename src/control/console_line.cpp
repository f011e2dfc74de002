#include "control/console_line.h"

#include <utility>

#include "common/text.h"

namespace {

/// The characters from `position` on, none when it is outside the text. A position
/// that was counted from "not found" has wrapped: npos + 1 is the start of the line,
/// npos - 1 and npos - 2 are outside of every line.
std::string characters(const std::string& text, std::size_t position, std::size_t count) {
    return position < text.size() ? text.substr(position, count) : std::string();
}

}  // namespace

ConsoleLine::ConsoleLine(std::string text, std::string separator)
    : text_(std::move(text)), separator_(std::move(separator)) {}

bool ConsoleLine::is(const std::string& word) const {
    return text_ == word + separator_;
}

bool ConsoleLine::contains(const std::string& word) const {
    return text_.find(word) != std::string::npos;
}

bool ConsoleLine::isTerminated() const {
    return contains(separator_);
}

std::string ConsoleLine::atColon(int offset) const {
    return characters(text_, text_.find(':') + static_cast<std::size_t>(offset), 1);
}

std::string ConsoleLine::afterEquals(std::size_t count) const {
    return characters(text_, text_.find('=') + 1, count);
}

bool matches(const ConsoleLine& line, const char* keyword, Match match) {
    switch (match) {
        case Match::kKeywordOnly:
            return line.contains(keyword);
        case Match::kContains:
            return line.contains(keyword) && line.isTerminated();
        case Match::kExact:
            return line.is(keyword);
        case Match::kTable:
            break;
    }
    return false;
}

unsigned digitOf(const std::string& text) {
    return text.empty() ? 0U : static_cast<unsigned>(HexCharToByte(text[0]));
}

unsigned char byteOf(const std::string& text) {
    const unsigned low = text.size() < 2 ? 0U : digitOf(text.substr(1));
    return static_cast<unsigned char>(digitOf(text) * 16 + low);
}
