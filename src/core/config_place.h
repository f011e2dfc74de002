#pragma once

#include <cstddef>
#include <string_view>

#include "core/config_document.h"

enum class ConfigEncoding { kUtf8, kUtf16Le, kUtf16Be, kUtf32Le, kUtf32Be, kLatin1 };

/// Finds lines and columns in a file of any encoding from offsets in its UTF-8
/// form. Quick for offsets that grow from call to call; an offset behind the end
/// is the end.
class ConfigPlaces {
  public:
    /// `bytes` are the file's own and stay the caller's.
    ConfigPlaces(std::string_view bytes, ConfigEncoding encoding)
        : bytes_(bytes), encoding_(encoding) {}

    ConfigPlace at(std::size_t utf8Offset);
    /// The first character from there on that is no blank, tab or line end.
    ConfigPlace behindBlanks(std::size_t utf8Offset);

  private:
    void step();

    std::string_view bytes_;
    ConfigEncoding encoding_;
    std::size_t read_ = 0;    ///< bytes of the file in front of place_
    std::size_t offset_ = 0;  ///< the same in UTF-8
    ConfigPlace place_;
};
