#include "control/io_forms.h"

#include <algorithm>
#include <array>
#include <utility>

#include "bus/card_kinds.h"
#include "bus/wire.h"
#include "common/text.h"

namespace {

/// A card takes frames of at most this many bytes.
constexpr std::size_t kFrameLimit = 38;

/// Operation code of the LCD's text frame; those of the controls are in kLcdControls.
constexpr char kLcdText = 9;

char at(const std::string& command, std::size_t position) {
    if (position >= command.size()) {
        throw CommandTooShort{};
    }
    return command[position];
}

bool contains(const std::string& command, const char* part) {
    return command.find(part) != std::string::npos;
}

bool isForm(const std::string& command, char letter) {
    return at(command, 0) == 'a' && at(command, 2) == letter;
}

char digitAt(const std::string& command, std::size_t position) {
    return Convert_HexStr2Byte({at(command, position)});
}

char byteAt(const std::string& command, std::size_t position) {
    return Convert_HexStr2Byte({at(command, position), at(command, position + 1)});
}

std::size_t addressOf(const std::string& command) {
    return static_cast<unsigned char>(digitAt(command, 1));
}

/// 0x10, the address, the number of bytes that follow, those bytes.
ByteList frameOf(std::size_t address, ByteList bytes) {
    ByteList frame{wire::kOutput, static_cast<char>(address), static_cast<char>(bytes.size())};
    frame.splice(frame.end(), bytes);
    return frame;
}

/// The frame for a card that takes such a stream; nothing for another card or for too
/// many bytes.
std::optional<OutputFrame> streamFrame(const std::string& command, ByteList bytes,
                                       CardStream stream, CardTable& cards) {
    const std::size_t address = addressOf(command);
    OutputFrame frame{address, frameOf(address, std::move(bytes))};
    if (frame.bytes.size() > kFrameLimit || kindOf(cards[address]).stream != stream) {
        return std::nullopt;
    }
    return frame;
}

// "aAbBdDD": a block of a card with output values

bool isBlock(const std::string& command) {
    return isForm(command, 'b') && at(command, 4) == 'd';
}

std::optional<OutputFrame> block(const std::string& command, CardTable& cards) {
    const std::size_t address = addressOf(command);
    const auto number = static_cast<unsigned char>(digitAt(command, 3));
    const auto value = static_cast<std::uint8_t>(byteAt(command, 5));
    PERIFCARD& card = cards[address];
    // Stored whatever the kind: an input card then reports the difference at its next
    // poll.
    card.values[number] = value;
    const std::size_t count = kindOf(card).outputValues;
    if (count == 0) {
        return OutputFrame{address, {}};
    }
    const auto* values = card.values.begin();
    return OutputFrame{address, frameOf(address, ByteList(values, values + count))};
}

// "aAsHSH1H2...": a stream for the IR card

bool isStream(const std::string& command) {
    return contains(command, "HS") && isForm(command, 's');
}

std::optional<OutputFrame> stream(const std::string& command, CardTable& cards) {
    constexpr std::size_t kStreamStart = 5;
    if (command.compare(3, 2, "HS") != 0) {
        return std::nullopt;
    }
    const std::size_t count = (command.size() - kStreamStart) / 2;
    ByteList bytes{static_cast<char>(count)};
    for (std::size_t i = 0; i < count; ++i) {
        bytes.push_back(byteAt(command, kStreamStart + 2 * i));
    }
    return streamFrame(command, std::move(bytes), CardStream::kInfrared, cards);
}

// "aAlXX": an LCD control

constexpr std::array kLcdControls{
    LcdControl{'C', 'L', 0},  // clear
    LcdControl{'L', 'O', 1},  // backlight on
    LcdControl{'L', 'F', 2},  // backlight off
    LcdControl{'C', 'O', 3},  // cursor on
    LcdControl{'C', 'F', 4},  // cursor off
    LcdControl{'B', 'O', 5},  // cursor blinking on
    LcdControl{'B', 'F', 6},  // cursor blinking off
};

bool isLcdControl(const std::string& command) {
    return isForm(command, 'l') && !contains(command, "PAp");
}

std::optional<OutputFrame> lcdControl(const std::string& command, CardTable& cards) {
    const char first = at(command, 3);
    const char second = at(command, 4);
    for (const LcdControl& control : kLcdControls) {
        if (control.first == first && control.second == second) {
            return streamFrame(command, {control.code}, CardStream::kLcd, cards);
        }
    }
    return std::nullopt;
}

// "aAlPApXXYYtTEXT": text on the LCD at column XX, row YY

bool isLcdText(const std::string& command) {
    return isForm(command, 'l');
}

std::optional<OutputFrame> lcdText(const std::string& command, CardTable& cards) {
    constexpr std::size_t kTextStart = 11;
    const char column = byteAt(command, 6);
    const char row = byteAt(command, 8);
    if (command.size() < kTextStart) {
        throw CommandTooShort{};
    }
    ByteList bytes{kLcdText, column, row};
    bytes.insert(bytes.end(), command.begin() + kTextStart, command.end());
    bytes.push_back('\0');
    return streamFrame(command, std::move(bytes), CardStream::kLcd, cards);
}

constexpr std::array kForms{
    IoForm{isBlock, block},
    IoForm{isStream, stream},
    IoForm{isLcdControl, lcdControl},
    IoForm{isLcdText, lcdText},
};

}  // namespace

std::span<const IoForm> ioForms() {
    return kForms;
}

std::span<const LcdControl> lcdControls() {
    return kLcdControls;
}

std::optional<OutputFrame> translateOutput(const std::string& command, CardTable& cards) {
    const auto* form = std::find_if(kForms.begin(), kForms.end(),
                                    [&command](const IoForm& f) { return f.matches(command); });
    return form == kForms.end() ? std::nullopt : form->translate(command, cards);
}

std::vector<std::string> splitCommands(const std::string& chunk, const std::string& separator) {
    std::vector<std::string> commands;
    std::size_t start = 0;
    while (start < chunk.size()) {
        const std::size_t end =
            separator.empty() ? chunk.size() : std::min(chunk.find(separator, start), chunk.size());
        if (end > start) {
            commands.push_back(chunk.substr(start, end - start));
        }
        start = end + separator.size();
    }
    return commands;
}
