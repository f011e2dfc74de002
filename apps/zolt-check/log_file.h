#pragma once

#include <string>

namespace check {

/// Why this process could not open or create the file at `path` for appending;
/// empty when it could, or when the path is empty, which means no log. Opens,
/// creates and changes nothing.
std::string whyLogFileCannotBeOpened(const std::string& path);

}  // namespace check
