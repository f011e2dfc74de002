#include "tests/support/text/text_escape.h"

#include "lib/text/escape.h"

namespace support {

std::string escapeBytes(std::string_view bytes) {
    std::string text;
    for (const char character : zolt_text::escape(bytes)) {
        if (character == '"') text += '\\';
        text += character;
    }
    return text;
}

std::string escapeLine(std::string_view text) {
    std::string line = zolt_text::escape(text);
    if (!line.empty() && line.back() == ' ') line.replace(line.size() - 1, 1, "\\x20");
    return line;
}

}  // namespace support
