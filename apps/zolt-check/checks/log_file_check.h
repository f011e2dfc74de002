#pragma once

#include <string>

namespace zolt_check {

/// The reason why this process cannot open or create the file at `path` for appending.
/// Empty if this process can, and also for an empty path, which means no log. The check
/// opens, creates and changes nothing.
std::string whyLogFileCannotBeOpened(const std::string& path);

}  // namespace zolt_check
