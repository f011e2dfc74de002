#include "ports/framing.h"

#include <algorithm>

namespace framing {

ByteList received(int mode, const char* buffer) {
    return mode == kBinary ? Convert_BinBuff2QList(buffer) : Convert_CharBuff2QList(buffer);
}

std::string toSend(int mode, const ByteList& item) {
    // Carriage returns: the one that is left behind a text ends it.
    std::string bytes(item.size() + 1, '\r');
    auto start = bytes.begin();
    if (mode == kBinary) {
        *start++ = static_cast<char>(item.size());
    }
    std::copy(item.begin(), item.end(), start);
    return bytes;
}

}  // namespace framing
