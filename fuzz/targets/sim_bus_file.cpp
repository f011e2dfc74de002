// Fuzzes the bus file of the simulated bus, and sends requests to the bus that the file
// describes.

#include <cstdint>
#include <string>

#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/cards/bus_model.h"
#include "apps/zolt-sim/error.h"
#include "fuzz/support/target.h"

namespace {

constexpr std::size_t kMostBytes = 4096;

/// The shortest bus file that describes the same bus.
std::string fileOf(const zolt_sim::BusLayout& layout, const zolt_sim::BusModel& model) {
    std::string text = layout.missingSilent ? "missing silent\n" : "";
    const std::vector<std::string> lines = model.showAll();
    for (std::size_t i = 0; i < layout.slots.size(); ++i) {
        if (layout.slots[i].content != zolt_sim::SlotSetup::Content::kEmpty) {
            text += lines[i].substr(0, lines[i].find(':')) + "\n";
        }
    }
    return text;
}

void requireAnswers(zolt_sim::BusModel& model, const zolt_sim::BusLayout& layout) {
    const auto discovery = model.answer({zolt_sim::wire::kDiscovery}).answer;
    fuzz::require(discovery && discovery->size() == 17, "discovery is answered");
    for (std::uint8_t address = 0; address < zolt_sim::wire::kAddressCount; ++address) {
        fuzz::require((*discovery)[address + std::size_t{1}] == layout.slots[address].code,
                      "discovery finds what the file describes");
        for (unsigned length = 0; length < 256; length += 51) {
            const auto poll =
                model.answer({zolt_sim::wire::kPoll, address, static_cast<std::uint8_t>(length)});
            fuzz::require(!poll.answer || poll.answer->size() <= zolt_sim::wire::kLongestPayload,
                          "an answer fits its length byte");
        }
        fuzz::require(!model.show(address).empty(), "every address can be shown");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(fuzz::textOf(data, size, kMostBytes));
    try {
        const zolt_sim::BusLayout layout = zolt_sim::parseBusText(text, "fuzz.bus");
        zolt_sim::BusModel model(layout);
        requireAnswers(model, layout);
        const std::string again = fileOf(layout, model);
        zolt_sim::BusModel second(zolt_sim::parseBusText(again, "again.bus"));
        fuzz::require(second.showAll() == model.showAll(), "a bus shows as it is written");
    } catch (const zolt_sim::Error& error) {
        fuzz::require(std::string(error.what()).starts_with("fuzz.bus:"),
                      "a mistake is reported with its place");
    }
    return 0;
}
