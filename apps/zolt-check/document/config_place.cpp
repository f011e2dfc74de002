#include "apps/zolt-check/document/config_place.h"

#include <cstdint>

namespace zolt_check {
namespace {

constexpr std::uint32_t kByteOrderMark = 0xFEFF;

struct Character {
    std::uint32_t code;
    std::size_t bytes;  ///< in the file
    bool dropped = false;
};

std::uint32_t byteAt(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

std::uint32_t unitAt(std::string_view bytes, std::size_t at, std::size_t size, bool bigEndian) {
    std::uint32_t unit = 0;
    for (std::size_t i = 0; i < size; ++i) {
        unit = unit << 8U | byteAt(bytes, at + (bigEndian ? i : size - 1 - i));
    }
    return unit;
}

Character utf8At(std::string_view bytes, std::size_t at) {
    std::uint32_t code = byteAt(bytes, at);
    std::size_t next = at + 1;
    for (; next < bytes.size() && (byteAt(bytes, next) & 0xC0U) == 0x80U; ++next) {
        code = code << 8U | byteAt(bytes, next);
    }
    constexpr std::uint32_t kMarkInUtf8 = 0xEFBBBF;
    return {code == kMarkInUtf8 ? kByteOrderMark : code, next - at};
}

Character utf16At(std::string_view bytes, std::size_t at, bool bigEndian) {
    const std::uint32_t first = unitAt(bytes, at, 2, bigEndian);
    if (first < 0xD800U || first > 0xDFFFU) {
        return {first, 2};
    }
    const std::uint32_t second = unitAt(bytes, at + 2, 2, bigEndian);
    if (first <= 0xDBFFU && second >= 0xDC00U && second <= 0xDFFFU) {
        return {0x10000U + ((first & 0x3FFU) << 10U | (second & 0x3FFU)), 4};
    }
    // One half of a surrogate pair without the other: the parser drops it.
    return {first, 2, true};
}

Character characterAt(std::string_view bytes, std::size_t at, ConfigEncoding encoding) {
    switch (encoding) {
        case ConfigEncoding::kUtf16Le:
        case ConfigEncoding::kUtf16Be:
            return utf16At(bytes, at, encoding == ConfigEncoding::kUtf16Be);
        case ConfigEncoding::kUtf32Le:
        case ConfigEncoding::kUtf32Be:
            return {unitAt(bytes, at, 4, encoding == ConfigEncoding::kUtf32Be), 4};
        case ConfigEncoding::kLatin1:
            return {byteAt(bytes, at), 1};
        case ConfigEncoding::kUtf8:
            break;
    }
    return utf8At(bytes, at);
}

std::size_t sizeInUtf8(std::uint32_t code) {
    return code < 0x80U ? 1U : code < 0x800U ? 2U : code < 0x10000U ? 3U : 4U;
}

bool isBlank(std::uint32_t code) {
    return code == ' ' || code == '\t' || code == '\r' || code == '\n';
}

}  // namespace

ConfigPlace ConfigPlaces::at(std::size_t utf8Offset) {
    if (utf8Offset < offset_) {
        *this = ConfigPlaces(bytes_, encoding_);
    }
    while (offset_ < utf8Offset && read_ < bytes_.size()) {
        step();
    }
    return place_;
}

ConfigPlace ConfigPlaces::afterBlanks(std::size_t utf8Offset) {
    at(utf8Offset);
    while (read_ < bytes_.size() && isBlank(characterAt(bytes_, read_, encoding_).code)) {
        step();
    }
    return place_;
}

void ConfigPlaces::step() {
    const Character next = characterAt(bytes_, read_, encoding_);
    read_ += next.bytes;
    if (!next.dropped) {
        offset_ += encoding_ == ConfigEncoding::kUtf8 ? next.bytes : sizeInUtf8(next.code);
    }
    if (next.code == '\n') {
        ++place_.line;
        place_.column = 1;
    } else if (next.code != kByteOrderMark) {
        ++place_.column;
    }
}

}  // namespace zolt_check
