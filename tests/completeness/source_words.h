#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace completeness {

/// The content of a file, whose path begins at the root of the source tree. Throws
/// std::runtime_error for an empty or missing one.
std::string sourceFile(const std::string& path);

/// The pieces of a text between blanks, line ends, quotation marks, backticks, bars,
/// angle brackets and backslashes: whoever writes a command into a document, a string
/// or a dictionary makes it one of these words.
std::vector<std::string> wordsOf(std::string_view text);

bool hasWord(std::string_view text, const std::function<bool(const std::string&)>& accepts);

/// All lines "send PORT ..." of the golden dialogues, with the lines that follow up to
/// the next action.
std::vector<std::string> sentInDialogues(const std::string& port);

}  // namespace completeness
