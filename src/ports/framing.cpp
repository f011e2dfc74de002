#include "ports/framing.h"

#include <algorithm>

namespace framing {

ByteList received(FramingMode mode, const char* buffer) {
    return mode == FramingMode::kBinary ? Convert_BinBuff2QList(buffer)
                                        : Convert_CharBuff2QList(buffer);
}

std::string toSend(FramingMode mode, const ByteList& item) {
    // Filled with carriage returns: the last one ends a text; a binary item overwrites it.
    std::string bytes(item.size() + 1, '\r');
    auto start = bytes.begin();
    if (mode == FramingMode::kBinary) {
        *start++ = static_cast<char>(item.size());
    }
    std::copy(item.begin(), item.end(), start);
    return bytes;
}

}  // namespace framing
