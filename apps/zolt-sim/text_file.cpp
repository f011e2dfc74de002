#include "apps/zolt-sim/text_file.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "apps/zolt-sim/error.h"

namespace zolt_sim {
namespace {

/// Bytes; far above any file that a person or a program writes for the bus.
constexpr std::size_t kLargestFile = 16U << 20U;

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
    std::string text;
    std::array<char, 65536> piece;
    while (file.read(piece.data(), piece.size()), file.gcount() > 0) {
        text.append(piece.data(), static_cast<std::size_t>(file.gcount()));
        if (text.size() > kLargestFile) {
            throw Error(path + ": is larger than 16 MiB");
        }
    }
    return text;
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
