#include "apps/zolt-sim/cards/input_cards.h"

#include "apps/zolt-sim/cards/wire.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {

std::optional<ConfigResult> AnalogueInputCard::configureKind(const ConfigRequest& request) {
    const bool isSet = request.operation == wire::kConfigSet;
    if (isSet && request.registerNumber == wire::kRegisterMask && request.value) {
        mask_ = *request.value;
        return ConfigResult{mask_, "mask " + zolt_text::hexByte(mask_)};
    }
    if (isSet && request.registerNumber == wire::kRegisterMaskStore && !request.value) {
        storedMask_ = mask_;
        return ConfigResult{0, "mask " + zolt_text::hexByte(mask_) + " stored"};
    }
    if (request.operation == wire::kConfigGet && request.registerNumber == wire::kRegisterMask &&
        !request.value) {
        return ConfigResult{mask_, ""};
    }
    return std::nullopt;
}

std::vector<std::string> AnalogueInputCard::details() const {
    return {"mask " + zolt_text::hexByte(mask_) + ", stored " + zolt_text::hexByte(storedMask_)};
}

}  // namespace zolt_sim
