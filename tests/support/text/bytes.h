#pragma once

#include <string>
#include <vector>

#include "common/byte_list.h"
#include "core/zlqueue.h"

/// Bytes written and read as hexadecimal pairs, "20 03 02".

inline std::string bytes(const std::string& hex) {
    std::string result;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 3) {
        result.push_back(static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    return result;
}

inline ByteList byteList(const std::string& hex) {
    const std::string text = bytes(hex);
    return {text.begin(), text.end()};
}

template <typename Bytes>
std::string hexText(const Bytes& sequence) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : sequence) {
        const auto value = static_cast<unsigned char>(byte);
        text += text.empty() ? "" : " ";
        text += kDigits[value / 16];
        text += kDigits[value % 16];
    }
    return text;
}

/// Empties a queue whose items are texts.
inline std::vector<std::string> takeTexts(ZLQUEUE& queue) {
    std::vector<std::string> texts;
    while (!queue.IsEmpty()) {
        const ByteList item = queue.DeQueue();
        texts.emplace_back(item.begin(), item.end());
    }
    return texts;
}

/// Empties a queue whose items are frames.
inline std::vector<std::string> takeFrames(ZLQUEUE& queue) {
    std::vector<std::string> frames;
    while (!queue.IsEmpty()) frames.push_back(hexText(queue.DeQueue()));
    return frames;
}
