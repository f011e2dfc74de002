#pragma once

#include <string>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/text/time_stamp.h"

namespace support {

/// A debug log in a temporary folder, which is removed with this object.
class TemporaryLog {
  public:
    std::string path() const { return folder_.file("debug.log"); }

    /// The lines so far without their time stamps. A line without a proper time stamp stays
    /// complete, so that a comparison finds it.
    std::vector<std::string> lines() const {
        std::vector<std::string> lines = splitLines(readFile(path()));
        for (std::string& line : lines) {
            line = withoutLogTime(line);
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
    TemporaryFolder folder_;
};

}  // namespace support
