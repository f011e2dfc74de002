#pragma once

#include <cstddef>
#include <string>

/// One line of the console, and how its parts are found: parameters belong to the
/// first ":" and the first "=" of the whole line, wherever the keyword is. A part
/// that is missing is an empty text, which is digit 0. No function reads outside
/// the line.
class ConsoleLine {
  public:
    /// `text` is the line as received, with its separator.
    ConsoleLine(std::string text, std::string separator);

    /// Whether the line is the word and the separator and nothing else.
    bool is(const std::string& word) const;
    bool contains(const std::string& word) const;
    /// Whether the line contains the separator. Every line contains an empty one.
    bool isTerminated() const;

    /// The character `offset` places from the first ":". In a line without a ":"
    /// the offset 1 is the first character.
    std::string atColon(int offset) const;
    /// The `count` characters after the first "=", or as many as there are; in a
    /// line without a "=" they are taken from its start.
    std::string afterEquals(std::size_t count) const;

    const std::string& text() const { return text_; }
    const std::string& separator() const { return separator_; }

  private:
    std::string text_;
    std::string separator_;
};

/// How a row of a command table recognises a line. The case of letters counts.
enum class Match {
    kKeywordOnly,  ///< The line contains the keyword.
    kContains,     ///< The line contains the keyword and the separator.
    kExact,        ///< The line is the keyword and the separator.
    kTable,        ///< The row is a table of its own, whose rows decide.
};

/// Whether a row with this keyword recognises the line.
/// REQUIRES: `match` is not Match::kTable.
bool matches(const ConsoleLine& line, const char* keyword, Match match);

/// The digit of a one-character text, 0 for an empty one.
unsigned digitOf(const std::string& text);

/// The byte of a text of two digits; missing digits are 0.
unsigned char byteOf(const std::string& text);
