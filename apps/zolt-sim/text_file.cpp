#include "apps/zolt-sim/text_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "apps/zolt-sim/error.h"

namespace zolt_sim {
namespace {

std::string withoutComment(const std::string& line) {
    constexpr const char* kBlanks = " \t\r";
    const std::string text = line.substr(0, line.find('#'));
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos) {
        return "";
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::string readTextFile(const std::string& path) {
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        throw Error(path + ": is a directory");
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw Error(path + ": " + std::strerror(errno));
    }
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void forEachEntry(std::string_view text, const std::string& fileName,
                  const std::function<void(const std::string& entry)>& read) {
    std::istringstream lines{std::string(text)};
    unsigned lineNumber = 0;
    for (std::string line; std::getline(lines, line);) {
        ++lineNumber;
        const std::string entry = withoutComment(line);
        if (entry.empty()) {
            continue;
        }
        try {
            read(entry);
        } catch (const Error& error) {
            throw Error(fileName + ":" + std::to_string(lineNumber) + ": " + error.what());
        }
    }
}

}  // namespace zolt_sim
