#pragma once

#include <cstddef>
#include <iomanip>
#include <sstream>
#include <string>

namespace support {

/// Upper-case hexadecimal digits, filled with zeros from the left to `digits` digits.
inline std::string hexNumber(std::size_t value, int digits) {
    std::ostringstream text;
    text << std::uppercase << std::hex << std::setfill('0') << std::setw(digits) << value;
    return text.str();
}

}  // namespace support
