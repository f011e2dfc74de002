#include "apps/zolt-sim/cards/stream_cards.h"

#include <algorithm>

#include "apps/zolt-sim/cards/wire.h"
#include "lib/text/escape.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

constexpr std::string_view kSelfTestMessage = "SELF TEST OK";

const char* onOff(bool on) {
    return on ? "on" : "off";
}

/// The text in quotation marks. A byte that is not printable ASCII, a quotation mark
/// and a backslash are written as \xNN.
std::string quoted(const Bytes& text) {
    std::string result = "\"";
    for (const std::uint8_t byte : text) {
        const char character = static_cast<char>(byte);
        const bool plain = byte >= 0x20 && byte < 0x7F && character != '"' && character != '\\';
        result += plain ? std::string(1, character) : zolt_text::hexEscape(character);
    }
    return result + '"';
}

}  // namespace

LcdCard::LcdCard() {
    clear();
}

void LcdCard::clear() {
    rows_.fill(Bytes(kColumns, ' '));
}

std::optional<std::string> LcdCard::output(const Bytes& data) {
    struct Switch {
        std::uint8_t code;
        bool LcdCard::*flag;
        bool on;
        const char* change;
    };
    static constexpr std::array kSwitches{
        Switch{wire::kLcdLightOn, &LcdCard::light_, true, "light on"},
        Switch{wire::kLcdLightOff, &LcdCard::light_, false, "light off"},
        Switch{wire::kLcdCursorOn, &LcdCard::cursor_, true, "cursor on"},
        Switch{wire::kLcdCursorOff, &LcdCard::cursor_, false, "cursor off"},
        Switch{wire::kLcdBlinkOn, &LcdCard::blink_, true, "blink on"},
        Switch{wire::kLcdBlinkOff, &LcdCard::blink_, false, "blink off"}};
    if (data.empty()) {
        return std::nullopt;
    }
    if (data.front() == wire::kLcdText) {
        return writeText(data);
    }
    if (data.size() != 1) {
        return std::nullopt;
    }
    if (data.front() == wire::kLcdClear) {
        clear();
        return "cleared";
    }
    for (const Switch& entry : kSwitches) {
        if (entry.code == data.front()) {
            this->*entry.flag = entry.on;
            return entry.change;
        }
    }
    return std::nullopt;
}

std::optional<std::string> LcdCard::writeText(const Bytes& data) {
    constexpr std::size_t kTextStart = 3;  // code, column, row
    if (data.size() <= kTextStart || data.back() != 0) {
        return std::nullopt;
    }
    const std::size_t column = data[1];
    const std::size_t row = data[2];
    const auto begin = data.begin() + kTextStart;
    const Bytes text(begin, std::find(begin, data.end(), 0));
    std::string change = "text at column " + std::to_string(column) + " row " +
                         std::to_string(row) + " " + quoted(text);
    if (row >= kRows || column >= kColumns) {
        return change + " (outside the display)";
    }
    const std::size_t visible = std::min(text.size(), kColumns - column);
    std::copy_n(text.begin(), visible, rows_[row].begin() + static_cast<std::ptrdiff_t>(column));
    return change;
}

std::string LcdCard::summary() const {
    return std::string("light ") + onOff(light_) + ", cursor " + onOff(cursor_) + ", blink " +
           onOff(blink_);
}

std::vector<std::string> LcdCard::details() const {
    std::vector<std::string> lines;
    for (std::size_t row = 0; row < kRows; ++row) {
        lines.push_back("row " + std::to_string(row) + " " + quoted(rows_[row]));
    }
    lines.push_back("self-test " + zolt_text::hexByte(selfTest_) + ", light at boot " +
                    zolt_text::hexByte(initLight_));
    return lines;
}

std::optional<ConfigResult> LcdCard::configureKind(const ConfigRequest& request) {
    if (request.operation != wire::kConfigSet || !request.value) {
        return std::nullopt;
    }
    if (request.registerNumber == wire::kRegisterLcdSelfTest) {
        selfTest_ = *request.value;
        return ConfigResult{selfTest_, "self-test " + zolt_text::hexByte(selfTest_)};
    }
    if (request.registerNumber == wire::kRegisterLcdInitLight) {
        initLight_ = *request.value;
        return ConfigResult{initLight_, "light at boot " + zolt_text::hexByte(initLight_)};
    }
    return std::nullopt;
}

void LcdCard::reboot() {
    clear();
    cursor_ = false;
    blink_ = false;
    light_ = initLight_ != 0;
    if (selfTest_ != 0) {
        std::copy(kSelfTestMessage.begin(), kSelfTestMessage.end(), rows_[0].begin());
    }
}

std::optional<std::string> IrCard::output(const Bytes& data) {
    if (data.empty() || data.front() != data.size() - 1) {
        return std::nullopt;
    }
    stream_.assign(data.begin() + 1, data.end());
    return summary();
}

std::string IrCard::summary() const {
    return stream_.empty() ? "stream empty" : "stream " + zolt_text::hexBytes(stream_);
}

}  // namespace zolt_sim
