#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/files.h"

namespace support {

/// A debug log in a temporary folder, which is removed with this object.
class TemporaryLog {
  public:
    TemporaryLog() {
        std::string name = std::filesystem::temp_directory_path() / "zolt-log-XXXXXX";
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make " + name);
        folder_ = name;
    }
    ~TemporaryLog() {
        std::error_code gone;
        std::filesystem::remove_all(folder_, gone);
    }
    TemporaryLog(const TemporaryLog&) = delete;
    TemporaryLog& operator=(const TemporaryLog&) = delete;

    std::string path() const { return folder_ / "debug.log"; }

    /// The lines so far without their time stamps. A line without a proper time stamp stays
    /// complete, so that a comparison finds it.
    std::vector<std::string> lines() const {
        std::vector<std::string> lines = splitLines(readFile(path()));
        for (std::string& line : lines) {
            if (hasStamp(line)) line.erase(0, kStampForm.size());
        }
        return lines;
    }

    /// True if one of the lines is `text`.
    bool has(const std::string& text) const {
        for (const std::string& line : lines()) {
            if (line == text) return true;
        }
        return false;
    }

  private:
    /// Each 0 means any digit.
    static constexpr std::string_view kStampForm = "0000-00-00 00:00:00 ";

    static bool hasStamp(const std::string& line) {
        if (line.size() < kStampForm.size()) return false;
        for (std::size_t i = 0; i < kStampForm.size(); ++i) {
            const bool isDigit = line[i] >= '0' && line[i] <= '9';
            if (kStampForm[i] == '0' ? !isDigit : line[i] != kStampForm[i]) return false;
        }
        return true;
    }

    std::filesystem::path folder_;
};

}  // namespace support
