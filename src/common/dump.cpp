#include "common/dump.h"

#include <cstdio>
#include <string>

namespace {

/// The last control character; bytes from 128 on are negative and so below it.
constexpr char kLastUnprintable = 31;

std::string item(char byte) {
    const char shown = byte <= kLastUnprintable ? '.' : byte;
    return std::string(1, shown) + ":" + std::to_string(static_cast<unsigned char>(byte)) + "|";
}

template <typename Iterator>
void print(std::string line, Iterator first, Iterator last) {
    for (; first != last; ++first) {
        line += item(*first);
    }
    line += "\n";
    std::fwrite(line.data(), 1, line.size(), stdout);
}

}  // namespace

void PrintBuffer(const char* buffer, std::size_t count) {
    print("Buffer content: ", buffer, buffer + count);
}

void PrintBufferID(const char* buffer, std::size_t count, const char* label) {
    print(std::string(label) + " Buffer content: ", buffer, buffer + count);
}

void PrintQList(const ByteList& list) {
    print("List size: " + std::to_string(list.size()) + "\nContent: ", list.begin(), list.end());
}
