#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zolt_sim {

/// The whole of a small text file. Throws Error with "PATH: REASON".
std::string readTextFile(const std::string& path);

/// Calls `read` with each line of `text` that holds more than a comment: without the
/// comment, which begins with '#', and without blanks at both ends. An Error of `read`
/// gets the place: "FILE:LINE: REASON". `fileName` appears only there.
void forEachEntry(std::string_view text, const std::string& fileName,
                  const std::function<void(const std::string& entry)>& read);

}  // namespace zolt_sim
