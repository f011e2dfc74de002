#include "apps/zolt-sim/cards/stream_cards.h"

#include <algorithm>

#include "apps/zolt-sim/cards/wire.h"

namespace sim {
namespace {

constexpr std::string_view kSelfTestMessage = "SELF TEST OK";

const char* onOff(bool on) {
    return on ? "on" : "off";
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
    static constexpr Switch kSwitches[] = {
        {wire::kLcdLightOn, &LcdCard::light_, true, "light on"},
        {wire::kLcdLightOff, &LcdCard::light_, false, "light off"},
        {wire::kLcdCursorOn, &LcdCard::cursor_, true, "cursor on"},
        {wire::kLcdCursorOff, &LcdCard::cursor_, false, "cursor off"},
        {wire::kLcdBlinkOn, &LcdCard::blink_, true, "blink on"},
        {wire::kLcdBlinkOff, &LcdCard::blink_, false, "blink off"}};
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
    lines.push_back("self-test " + hexByte(selfTest_) + ", light at boot " + hexByte(initLight_));
    return lines;
}

std::optional<ConfigResult> LcdCard::configureKind(const ConfigRequest& request) {
    if (request.operation != wire::kConfigSet || !request.value) {
        return std::nullopt;
    }
    if (request.registerNumber == wire::kRegisterLcdSelfTest) {
        selfTest_ = *request.value;
        return ConfigResult{selfTest_, "self-test " + hexByte(selfTest_)};
    }
    if (request.registerNumber == wire::kRegisterLcdInitLight) {
        initLight_ = *request.value;
        return ConfigResult{initLight_, "light at boot " + hexByte(initLight_)};
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
    return stream_.empty() ? "stream empty" : "stream " + hexBytes(stream_);
}

}  // namespace sim
