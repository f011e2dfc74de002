#pragma once

#include <cstddef>
#include <string_view>

namespace zolt_check {

/// A place in a file as editors count it: lines and characters from 1.
struct ConfigPlace {
    std::size_t line = 1;
    std::size_t column = 1;
};

enum class ConfigEncoding { kUtf8, kUtf16Le, kUtf16Be, kUtf32Le, kUtf32Be, kLatin1 };

/// Finds lines and columns in a file of any encoding, given offsets in the UTF-8 form of
/// the file. Calls with growing offsets are fast. An offset beyond the end counts as the
/// end.
class ConfigPlaces {
  public:
    /// `bytes` is the file as it is on disk; the caller keeps the bytes alive.
    ConfigPlaces(std::string_view bytes, ConfigEncoding encoding)
        : bytes_(bytes), encoding_(encoding) {}

    ConfigPlace at(std::size_t utf8Offset);
    /// The place of the first character at or after the offset that is not a blank, a tab
    /// or a line end.
    ConfigPlace afterBlanks(std::size_t utf8Offset);

  private:
    void step();

    std::string_view bytes_;
    ConfigEncoding encoding_;
    std::size_t read_ = 0;    ///< bytes of the file before place_
    std::size_t offset_ = 0;  ///< bytes of its UTF-8 form before place_
    ConfigPlace place_;
};

}  // namespace zolt_check
