#include "lib/ports/io_lines.h"

#include "lib/text/hexadecimal.h"

namespace zolt_ports {
namespace {

std::string command(char address, std::string_view letters) {
    std::string line{'a', address};
    line += letters;
    return line;
}

}  // namespace

std::string blockLine(char address, unsigned block, std::uint8_t value) {
    return command(address, "b") + zolt_text::hexDigit(block) + "d" + zolt_text::hexByte(value);
}

std::string lcdLine(char address, std::string_view letters) {
    return command(address, "l").append(letters);
}

std::string lcdTextLine(char address, std::uint8_t column, std::uint8_t row,
                        std::string_view text) {
    return (command(address, "lPAp") + zolt_text::hexByte(column) + zolt_text::hexByte(row) + "t")
        .append(text);
}

std::string streamLine(char address, std::string_view digits) {
    return command(address, "sHS").append(digits);
}

}  // namespace zolt_ports
