#include "common/byte_list.h"

#include <algorithm>
#include <cstdlib>

namespace {

void endProcessIfOverLong(std::size_t size) {
    if (size >= kConversionLimit) {
        std::abort();
    }
}

}  // namespace

ByteList Convert_String2QList(const std::string& text) {
    endProcessIfOverLong(text.size());
    ByteList list;
    const char* next = text.c_str();
    list.push_back(*next);
    if (text.empty()) {
        return list;
    }
    for (++next; *next != '\0'; ++next) {
        list.push_back(*next);
    }
    return list;
}

ByteList Convert_CharBuff2QList(const char* text) {
    ByteList list;
    for (; *text != '\0'; ++text) {
        list.push_back(*text);
    }
    return list;
}

ByteList Convert_BinBuff2QList(const char* buffer) {
    const int count = std::max(0, static_cast<int>(buffer[0]));
    return {buffer + 1, buffer + 1 + count};
}

std::string Convert_QList2String(const ByteList& list) {
    endProcessIfOverLong(list.size());
    return {list.begin(), std::find(list.begin(), list.end(), '\0')};
}

void Convert_QList2BinBuff(const ByteList& list, char* buffer) {
    std::copy(list.begin(), list.end(), buffer);
}
