#pragma once

#include <array>
#include <cstddef>
#include <cstdio>
#include <string>

namespace support {

/// In capitals, with leading zeros to `digits`.
inline std::string hex(std::size_t value, int digits) {
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "%0*zX", digits, value);
    return text.data();
}

}  // namespace support
