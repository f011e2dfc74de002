#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace support {

/// The whole content; empty if the file cannot be read.
std::string readFile(const std::filesystem::path& path);

/// Replaces the content of the file. Throws std::runtime_error.
void writeFile(const std::filesystem::path& path, const std::string& content);

/// The complete lines of a text, without their line ends.
std::vector<std::string> splitLines(const std::string& text);

/// Reads a file from its start, and then what is appended. The file need not exist yet.
class FileTail {
  public:
    explicit FileTail(std::filesystem::path path) : path_(std::move(path)) {}

    /// What has been appended since the last call.
    std::string readNew();
    /// The complete lines since the last call; an incomplete line is kept for the next call.
    std::vector<std::string> readNewLines();

  private:
    std::filesystem::path path_;
    std::streamoff position_ = 0;
    std::string partialLine_;
};

}  // namespace support
