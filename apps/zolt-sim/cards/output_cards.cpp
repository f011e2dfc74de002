#include "apps/zolt-sim/cards/output_cards.h"

#include <array>

#include "apps/zolt-sim/cards/wire.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

/// The byte of register `number` if the registers of `values` begin at `base`; nullptr
/// if that register is none of them.
std::uint8_t* registerByte(Bytes& values, std::uint8_t base, std::uint8_t number) {
    if (number < base || static_cast<std::size_t>(number - base) >= values.size()) {
        return nullptr;
    }
    return &values[static_cast<std::size_t>(number - base)];
}

std::string channelText(std::uint8_t base, std::uint8_t number) {
    return std::to_string(number - base);
}

}  // namespace

std::optional<std::string> OutputCard::output(const Bytes& data) {
    if (data.size() != data_.size()) {
        return std::nullopt;
    }
    data_ = data;
    return zolt_text::hexBytes(data_);
}

std::optional<ConfigResult> ServoCard::configureKind(const ConfigRequest& request) {
    struct End {
        const char* name;
        std::uint8_t setBase;
        std::uint8_t getBase;
        Bytes& values;
    };
    const std::array ends{
        End{"A", wire::kRegisterServoSetEndA, wire::kRegisterServoGetEndA, endA_},
        End{"B", wire::kRegisterServoSetEndB, wire::kRegisterServoGetEndB, endB_}};
    const std::uint8_t number = request.registerNumber;
    for (const End& end : ends) {
        if (request.operation == wire::kConfigSet && request.value) {
            if (std::uint8_t* value = registerByte(end.values, end.setBase, number)) {
                *value = *request.value;
                return ConfigResult{*value, "end " + std::string(end.name) + " of channel " +
                                                channelText(end.setBase, number) + " " +
                                                zolt_text::hexByte(*value)};
            }
        }
        if (request.operation == wire::kConfigGet && !request.value) {
            if (const std::uint8_t* value = registerByte(end.values, end.getBase, number)) {
                return ConfigResult{*value, ""};
            }
        }
    }
    if (request.operation != wire::kConfigSet || request.value) {
        return std::nullopt;
    }
    if (number == wire::kRegisterServoStore) {
        setPreset(data());
        return ConfigResult{0, "positions " + summary() + " stored"};
    }
    if (number == wire::kRegisterServoMoveToStored) {
        moveTo(preset());
        return ConfigResult{0, "moved to stored positions " + summary()};
    }
    return std::nullopt;
}

std::vector<std::string> ServoCard::details() const {
    return {"stored positions " + zolt_text::hexBytes(preset()),
            "ends A " + zolt_text::hexBytes(endA_), "ends B " + zolt_text::hexBytes(endB_)};
}

std::optional<ConfigResult> MotorCard::configureKind(const ConfigRequest& request) {
    const std::uint8_t number = request.registerNumber;
    if (request.operation == wire::kConfigGet && !request.value) {
        if (const std::uint8_t* value =
                registerByte(ranges_, wire::kRegisterMotorGetRange, number)) {
            return ConfigResult{*value, ""};
        }
    }
    if (request.operation != wire::kConfigSet) {
        return std::nullopt;
    }
    if (request.value) {
        if (std::uint8_t* value = registerByte(ranges_, wire::kRegisterMotorSetRange, number)) {
            *value = *request.value;
            return ConfigResult{*value, "silent range of channel " +
                                            channelText(wire::kRegisterMotorSetRange, number) +
                                            " " + zolt_text::hexByte(*value)};
        }
        return std::nullopt;
    }
    if (number == wire::kRegisterMotorStore) {
        storedRanges_ = ranges_;
        return ConfigResult{0, "silent ranges " + zolt_text::hexBytes(ranges_) + " stored"};
    }
    return std::nullopt;
}

void MotorCard::reboot() {
    OutputCard::reboot();
    ranges_ = storedRanges_;
}

std::vector<std::string> MotorCard::details() const {
    return {"silent ranges " + zolt_text::hexBytes(ranges_) + ", stored " +
            zolt_text::hexBytes(storedRanges_)};
}

}  // namespace zolt_sim
