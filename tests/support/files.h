#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace support {

/// The whole content; empty when the file cannot be read.
std::string readFile(const std::filesystem::path& path);

/// Replaces the file's content; throws std::runtime_error on failure.
void writeFile(const std::filesystem::path& path, const std::string& content);

/// The complete lines of a text, without their line ends.
std::vector<std::string> splitLines(const std::string& text);

/// Reads what is appended to a file, from its start on. The file may come into
/// being later.
class FileTail {
  public:
    explicit FileTail(std::filesystem::path path) : path_(std::move(path)) {}

    /// What has been appended since the last call.
    std::string readNew();
    /// As readNew, in complete lines; a partial line is kept for the next call.
    std::vector<std::string> readNewLines();

  private:
    std::filesystem::path path_;
    std::streamoff position_ = 0;
    std::string partialLine_;
};

}  // namespace support
