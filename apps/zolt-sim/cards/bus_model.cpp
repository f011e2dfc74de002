#include "apps/zolt-sim/cards/bus_model.h"

#include <algorithm>

#include "apps/zolt-sim/cards/request.h"
#include "apps/zolt-sim/error.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

std::string describe(const SlotSetup& setup) {
    switch (setup.content) {
        case SlotSetup::Content::kEmpty:
            return "empty";
        case SlotSetup::Content::kSilent:
            return "silent";
        case SlotSetup::Content::kCard:
            break;
    }
    return kindName(setup.code);
}

}  // namespace

BusModel::BusModel(const BusLayout& layout) : missingSilent_(layout.missingSilent) {
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        slots_[i].setup = layout.slots[i];
        if (slots_[i].setup.content == SlotSetup::Content::kCard) {
            slots_[i].card = makeCard(slots_[i].setup.code);
        }
    }
}

BusModel::Reply BusModel::answer(const Bytes& request) {
    if (request.empty()) {
        return {};
    }
    switch (requestKind(request)) {
        case RequestKind::kPoll:
            return answerPoll(request);
        case RequestKind::kOutput:
            return answerOutput(request);
        case RequestKind::kConfig:
            return answerConfig(request);
        case RequestKind::kDiscovery:
            if (request.size() == 1) {
                return {answerDiscovery(), ""};
            }
            break;
        case RequestKind::kCheck:
            if (std::equal(request.begin() + 1, request.end(), wire::kHardwareCheckMark.begin(),
                           wire::kHardwareCheckMark.end())) {
                Bytes answer{wire::kControllerStatus};
                answer.insert(answer.end(), wire::kControllerVersion.begin(),
                              wire::kControllerVersion.end());
                return {answer, ""};
            }
            break;
        case RequestKind::kUnknown:
            break;
    }
    // The controller itself refuses an unknown request, whichever cards there are.
    const std::uint8_t named = request.size() > 1 ? request[1] : std::uint8_t{0};
    return {Bytes{wire::kNegative, named}, ""};
}

BusModel::Reply BusModel::answerPoll(const Bytes& request) {
    constexpr std::size_t kHead = 2;  // type and address
    if (request.size() < 3) {
        return refuse(request.size() > 1 ? request[1] : std::uint8_t{0});
    }
    const std::uint8_t address = request[1];
    Card* card = cardAt(address);
    const Bytes* inputs = card != nullptr ? card->inputs() : nullptr;
    if (inputs == nullptr) {
        return refuse(address);
    }
    // A request may hold several polls; only the first is answered.
    const std::size_t length = std::min<std::size_t>(request[2], wire::kLongestPayload - kHead);
    Bytes answer{wire::kPollAnswer, address};
    for (std::size_t i = 0; i < length; ++i) {
        answer.push_back(i < inputs->size() ? (*inputs)[i] : std::uint8_t{0});
    }
    return {answer, ""};
}

BusModel::Reply BusModel::answerOutput(const Bytes& request) {
    constexpr std::size_t kHead = 3;  // type, address, count
    if (request.size() < kHead || request[2] != request.size() - kHead) {
        return refuse(request.size() > 1 ? request[1] : std::uint8_t{0});
    }
    const std::uint8_t address = request[1];
    Card* card = cardAt(address);
    if (card != nullptr) {
        if (const auto change = card->output({request.begin() + kHead, request.end()})) {
            return {Bytes{wire::kAcknowledge}, label(address) + *change};
        }
    }
    return refuse(address);
}

BusModel::Reply BusModel::answerConfig(const Bytes& request) {
    constexpr std::size_t kHead = 4;  // type, address, operation, register
    if (request.size() < kHead || request.size() > kHead + 1) {
        return refuse(request.size() > 1 ? request[1] : std::uint8_t{0});
    }
    const std::uint8_t address = request[1];
    Card* card = cardAt(address);
    if (card != nullptr) {
        ConfigRequest config{request[2], request[3], std::nullopt};
        if (request.size() > kHead) {
            config.value = request[kHead];
        }
        if (const auto result = card->configure(config)) {
            return {Bytes{wire::kConfigAnswer, address, request[3], result->value},
                    result->change.empty() ? "" : label(address) + result->change};
        }
    }
    return refuse(address);
}

Bytes BusModel::answerDiscovery() const {
    Bytes answer{wire::kDiscoveryAnswer};
    for (const Slot& slot : slots_) {
        answer.push_back(slot.setup.code);
    }
    return answer;
}

BusModel::Reply BusModel::refuse(std::uint8_t address) const {
    const bool hasCard = cardAt(address) != nullptr;
    const bool slotSilent =
        address < slots_.size() && slots_[address].setup.content == SlotSetup::Content::kSilent;
    if (slotSilent || (!hasCard && missingSilent_)) {
        return {};
    }
    return {Bytes{wire::kNegative, address}, ""};
}

Card* BusModel::cardAt(std::uint8_t address) const {
    return address < slots_.size() ? slots_[address].card.get() : nullptr;
}

std::string BusModel::label(std::uint8_t address) const {
    return "card " + zolt_text::hexDigit(address) + " " + describe(slots_[address].setup) + ": ";
}

Bytes& BusModel::inputsOf(std::uint8_t address, std::optional<InputDevice> device) {
    const Slot& slot = slots_[address];
    const CardKind* kind = findKind(slot.setup.code);
    if (kind == nullptr || kind->inputs == InputDevice::kNone ||
        (device && kind->inputs != *device)) {
        throw Error("address " + zolt_text::hexDigit(address) + " is " + describe(slot.setup) +
                    ", not " + (device ? kindNamesWith(*device) : "an input card"));
    }
    return *slot.card->inputs();
}

std::string BusModel::changeInput(std::uint8_t address, Bytes& inputs, std::size_t block,
                                  std::uint8_t value) {
    if (block >= inputs.size()) {
        throw Error("card " + zolt_text::hexDigit(address) + " has only blocks 0 to " +
                    std::to_string(inputs.size() - 1));
    }
    inputs[block] = value;
    return label(address) + zolt_text::hexBytes(inputs);
}

std::string BusModel::setInput(std::uint8_t address, std::size_t block, std::uint8_t value) {
    return changeInput(address, inputsOf(address, std::nullopt), block, value);
}

std::string BusModel::press(std::uint8_t address, unsigned input, bool down) {
    constexpr unsigned kBits = 8;
    Bytes& inputs = inputsOf(address, InputDevice::kSwitches);
    const std::size_t block = input / kBits;
    const unsigned mask = 1U << (input % kBits);
    const unsigned old = block < inputs.size() ? inputs[block] : 0U;
    return changeInput(address, inputs, block,
                       static_cast<std::uint8_t>(down ? old | mask : old & ~mask));
}

std::string BusModel::turn(std::uint8_t address, std::size_t channel, std::uint8_t value) {
    return changeInput(address, inputsOf(address, InputDevice::kPotentiometers), channel, value);
}

std::string BusModel::key(std::uint8_t address, std::uint8_t value) {
    return changeInput(address, inputsOf(address, InputDevice::kKeys), 0, value);
}

std::string BusModel::insert(std::uint8_t address, const SlotSetup& setup) {
    Slot& slot = slots_[address];
    if (slot.card != nullptr) {
        throw Error("address " + zolt_text::hexDigit(address) + " is taken by " +
                    describe(slot.setup) + ": remove it first");
    }
    slot.setup = setup;
    if (setup.content == SlotSetup::Content::kCard) {
        slot.card = makeCard(setup.code);
    }
    return label(address) + "inserted";
}

std::string BusModel::remove(std::uint8_t address) {
    Slot& slot = slots_[address];
    if (slot.setup.content == SlotSetup::Content::kEmpty) {
        throw Error("address " + zolt_text::hexDigit(address) + " is empty already");
    }
    std::string change = label(address) + "removed";
    slot = Slot{};
    return change;
}

std::vector<std::string> BusModel::showAll() const {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Slot& slot = slots_[i];
        std::string line =
            zolt_text::hexDigit(static_cast<std::uint8_t>(i)) + " " + describe(slot.setup);
        if (slot.card != nullptr) {
            line += ": " + slot.card->summary();
        }
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> BusModel::show(std::uint8_t address) const {
    std::vector<std::string> lines{showAll()[address]};
    if (const Card* card = cardAt(address)) {
        for (const std::string& detail : card->details()) {
            lines.push_back("  " + detail);
        }
    }
    return lines;
}

}  // namespace zolt_sim
