#pragma once

#include <cstddef>
#include <string>

/// One line of the console and how its parts are found: parameters hang on the
/// first ":" and the first "=" of the whole line, wherever the keyword stands.
/// A part that is not there is an empty text, which is digit 0; nothing here
/// reads outside the line.
class ConsoleLine {
  public:
    /// `text` is the line as received, with its separator.
    ConsoleLine(std::string text, std::string separator);

    /// The line is the word and the separator, nothing else.
    bool is(const std::string& word) const;
    bool contains(const std::string& word) const;
    /// Contains the separator. An empty one is always there.
    bool isTerminated() const;

    /// The character `offset` places from the first ":". Without a ":" the
    /// offset 1 is the first character of the line.
    std::string atColon(int offset) const;
    /// The `count` characters behind the first "=", as many as there are; from
    /// the start of the line without a "=".
    std::string afterEquals(std::size_t count) const;

    const std::string& text() const { return text_; }
    const std::string& separator() const { return separator_; }

  private:
    std::string text_;
    std::string separator_;
};

/// The digit of a one-character text, 0 for an empty one.
unsigned digitOf(const std::string& text);

/// The byte of a text of two digits; missing digits are 0.
unsigned char byteOf(const std::string& text);
