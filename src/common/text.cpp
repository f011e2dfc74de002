#include "common/text.h"

#include <cstdlib>
#include <cstring>

#include "common/byte_list.h"

namespace {

/// A hexadecimal text has one or two digits. A text of this length or more is a
/// programming error, so it ends the process.
constexpr std::size_t kHexTextLimit = 5;

}  // namespace

long ATOL(const std::string& text) {
    return std::strtol(text.c_str(), nullptr, 10);
}

std::string ITOA(int number) {
    return std::to_string(number);
}

std::string BTOA(bool value) {
    return value ? "TRUE" : "FALSE";
}

bool ATOB(const std::string& text) {
    return text == "True" || text == "true" || text == "TRUE";
}

std::string Convert_CharBuff2String(const char* text) {
    if (std::strlen(text) >= kConversionLimit) {
        std::abort();
    }
    return text;
}

char HexCharToByte(char digit) {
    if (digit >= '0' && digit <= '9') {
        return static_cast<char>(digit - '0');
    }
    if (digit >= 'A' && digit <= 'F') {
        return static_cast<char>(digit - 'A' + 10);
    }
    return 0;
}

char HexNum2Byte(char high, char low) {
    return static_cast<char>(HexCharToByte(high) * 16 + HexCharToByte(low));
}

char Convert_HexStr2Byte(const std::string& digits) {
    if (digits.size() >= kHexTextLimit) {
        std::abort();
    }
    if (digits.size() == 1) {
        return HexNum2Byte('0', digits[0]);
    }
    return digits.empty() ? HexNum2Byte('\0', '\0') : HexNum2Byte(digits[0], digits[1]);
}
