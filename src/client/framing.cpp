#include "client/framing.h"

namespace framing {

ByteList received(int mode, const char* buffer) {
    return mode == kBinary ? Convert_BinBuff2QList(buffer) : Convert_CharBuff2QList(buffer);
}

std::string toSend(int mode, const ByteList& item) {
    std::string bytes(item.begin(), item.end());
    if (mode == kBinary) {
        bytes.insert(bytes.begin(), static_cast<char>(bytes.size()));
    } else {
        bytes.push_back('\r');
    }
    return bytes;
}

}  // namespace framing
