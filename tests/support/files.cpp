#include "tests/support/files.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace support {
namespace {

// A read that fails ends the text: a file below /proc can go with its process while it is
// being read.
std::string readRest(std::ifstream& file) {
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

}  // namespace

std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return readRest(file);
}

void writeFile(const std::filesystem::path& path, const std::string& content) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << content << std::flush;
    if (!file) throw std::runtime_error("cannot write " + path.string());
}

std::vector<std::string> splitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::string::size_type start = 0;
    for (auto end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

std::string FileTail::readNew() {
    std::ifstream file(path_, std::ios::binary);
    if (!file.seekg(position_)) return {};
    std::string text = readRest(file);
    position_ += static_cast<std::streamoff>(text.size());
    return text;
}

std::vector<std::string> FileTail::readNewLines() {
    partialLine_ += readNew();
    auto lines = splitLines(partialLine_);
    const auto lastEnd = partialLine_.rfind('\n');
    if (lastEnd != std::string::npos) partialLine_.erase(0, lastEnd + 1);
    return lines;
}

}  // namespace support
