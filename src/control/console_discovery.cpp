#include "control/console_discovery.h"

#include <array>
#include <cstdio>

#include "bus/wire.h"

namespace {

void listCards(ConsoleContext& console, const char* heading) {
    console.reply(heading);
    for (unsigned address = 0; address < wire::kAddresses; ++address) {
        const char* name = console.host().card(address).kindName;
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), "DTI:0x%X:%s", address, name);
        console.reply(text.data());
    }
}

}  // namespace

void showCards(ConsoleContext& console, const ConsoleLine& /*line*/) {
    listCards(console, "DISCOVER LIST:");
}

void rediscoverCards(ConsoleContext& console, const ConsoleLine& /*line*/) {
    ConsoleHost& host = console.host();
    const bool polling = host.polling();
    host.setPolling(false);
    // Polls already under way finish before their records are cleared.
    host.pause(1);
    for (std::size_t address = 0; address < wire::kAddresses; ++address) {
        host.card(address).clearPerifCard();
    }
    host.request({wire::kDiscovery});
    host.pause(1);
    listCards(console, "FORCED DISCOVER LIST:");
    host.setPolling(polling);
}
