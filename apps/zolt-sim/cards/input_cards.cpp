#include "apps/zolt-sim/cards/input_cards.h"

#include "apps/zolt-sim/cards/wire.h"

namespace sim {

std::optional<ConfigResult> AnalogueInputCard::configureKind(const ConfigRequest& request) {
    const bool isSet = request.operation == wire::kConfigSet;
    if (isSet && request.registerNumber == wire::kRegisterMask && request.value) {
        mask_ = *request.value;
        return ConfigResult{mask_, "mask " + hexByte(mask_)};
    }
    if (isSet && request.registerNumber == wire::kRegisterMaskStore && !request.value) {
        storedMask_ = mask_;
        return ConfigResult{0, "mask " + hexByte(mask_) + " stored"};
    }
    if (request.operation == wire::kConfigGet && request.registerNumber == wire::kRegisterMask &&
        !request.value) {
        return ConfigResult{mask_, ""};
    }
    return std::nullopt;
}

std::vector<std::string> AnalogueInputCard::details() const {
    return {"mask " + hexByte(mask_) + ", stored " + hexByte(storedMask_)};
}

}  // namespace sim
