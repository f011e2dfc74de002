#include "apps/zolt-sim/cards/card.h"

#include "apps/zolt-sim/cards/wire.h"

namespace zolt_sim {

std::optional<std::string> Card::output(const Bytes&) {
    return std::nullopt;
}

std::optional<ConfigResult> Card::configure(const ConfigRequest& request) {
    if (request.operation == wire::kConfigSet && request.registerNumber == wire::kRegisterReboot &&
        !request.value) {
        reboot();
        return ConfigResult{0, "rebooted, " + summary()};
    }
    return configureKind(request);
}

std::optional<ConfigResult> Card::configureKind(const ConfigRequest&) {
    return std::nullopt;
}

}  // namespace zolt_sim
