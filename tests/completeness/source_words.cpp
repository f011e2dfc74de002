#include "tests/completeness/source_words.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "tests/support/files.h"

namespace completeness {
namespace {

const std::filesystem::path kRoot = ZOLT_SOURCE_DIR;

void addSent(std::vector<std::string>& sent, const std::string& dialogue, const std::string& port) {
    bool open = false;
    for (const std::string& line : support::splitLines(dialogue)) {
        if (line.starts_with("send " + port + " ")) {
            sent.push_back(line);
            open = true;
        } else if (open && line.starts_with(' ')) {
            sent.back() += "\n" + line;
        } else {
            open = false;
        }
    }
}

}  // namespace

std::string sourceFile(const std::string& path) {
    std::string content = support::readFile(kRoot / path);
    if (content.empty()) throw std::runtime_error(path + " cannot be read");
    return content;
}

std::vector<std::string> wordsOf(std::string_view text) {
    constexpr std::string_view kEnds = " \t\r\n\"'`|<>\\";
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(kEnds), text.size());
        if (end > 0) words.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

bool hasWord(std::string_view text, const std::function<bool(const std::string&)>& accepts) {
    const std::vector<std::string> words = wordsOf(text);
    return std::any_of(words.begin(), words.end(), accepts);
}

std::vector<std::string> sentInDialogues(const std::string& port) {
    std::vector<std::string> sent;
    for (const auto& file :
         std::filesystem::directory_iterator(kRoot / "tests" / "golden" / "dialogues")) {
        addSent(sent, support::readFile(file.path()), port);
    }
    return sent;
}

}  // namespace completeness
