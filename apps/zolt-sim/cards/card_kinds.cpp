#include "apps/zolt-sim/cards/card_kinds.h"

#include <algorithm>
#include <iterator>

#include "apps/zolt-sim/cards/input_cards.h"
#include "apps/zolt-sim/cards/output_cards.h"
#include "apps/zolt-sim/cards/stream_cards.h"
#include "apps/zolt-sim/cards/wire.h"

namespace sim {
namespace {

template <typename Kind>
std::unique_ptr<Card> make() {
    return std::make_unique<Kind>();
}

struct KindRow {
    std::uint8_t code;
    std::string_view name;
    std::unique_ptr<Card> (*make)();
};

constexpr KindRow kKinds[] = {
    {wire::kCodeDigitalOutput, "digital-output",
     []() -> std::unique_ptr<Card> {
         return std::make_unique<OutputCard>(Bytes{0xFF, 0xFF});
     }},
    {wire::kCodeDigitalInput, "digital-input",
     []() -> std::unique_ptr<Card> { return std::make_unique<InputCard>(2U); }},
    {wire::kCodeServo, "servo", make<ServoCard>},
    {wire::kCodeMotor, "motor", make<MotorCard>},
    {wire::kCodeAnalogueInput, "analogue-input", make<AnalogueInputCard>},
    {wire::kCodeKeyMatrix, "keymatrix",
     []() -> std::unique_ptr<Card> { return std::make_unique<InputCard>(1U); }},
    {wire::kCodeLcd, "lcd", make<LcdCard>},
    {wire::kCodeIr, "ir", make<IrCard>},
};

const KindRow* findCode(std::uint8_t code) {
    const auto* row = std::find_if(std::begin(kKinds), std::end(kKinds),
                                   [code](const KindRow& kind) { return kind.code == code; });
    return row == std::end(kKinds) ? nullptr : row;
}

}  // namespace

std::optional<std::uint8_t> kindCode(std::string_view name) {
    for (const KindRow& kind : kKinds) {
        if (kind.name == name) {
            return kind.code;
        }
    }
    return std::nullopt;
}

std::string kindName(std::uint8_t code) {
    const KindRow* row = findCode(code);
    return row != nullptr ? std::string(row->name) : "code " + hexByte(code);
}

bool isNamedKind(std::uint8_t code) {
    return findCode(code) != nullptr;
}

std::string kindNames() {
    std::string names;
    for (const KindRow& kind : kKinds) {
        names += names.empty() ? "" : " ";
        names += kind.name;
    }
    return names;
}

std::unique_ptr<Card> makeCard(std::uint8_t code) {
    const KindRow* row = findCode(code);
    return row != nullptr ? row->make() : std::make_unique<UnknownCard>();
}

}  // namespace sim
