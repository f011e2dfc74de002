#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zolt_ports {

enum class CardKind {
    kEmpty,  ///< no card at the address
    kDigitalOutput,
    kDigitalInput,
    kServo,
    kMotor,
    kAnalogueInput,
    kKeyMatrix,
    kLcd,
    kInfrared,
    kUnidentified,  ///< a card of a kind that the daemon or this table does not know
};

/// The commands of the IO port; io_lines.h composes them.
enum class OutputCommand { kBlock, kLcd, kInfrared };

/// All that differs between the kinds for a client. This is the only table of kinds on
/// the clients' side: a decision that depends on a kind is a column here.
struct CardKindRow {
    CardKind kind;
    /// What DISCOVER calls the kind.
    std::string_view name;
    /// False if the kind means that there is no card at the address.
    bool isCard = true;
    /// Completes "needs ..." in a message; empty if no command needs the kind.
    std::string_view needed = {};
    /// The IO command that the card takes; nothing if it takes none.
    std::optional<OutputCommand> output = std::nullopt;
    /// The blocks that can be set, from block 0 on.
    unsigned outputBlocks = 0;
    /// The blocks that are reported, from block 0 on.
    unsigned inputBlocks = 0;
    /// The blocks that GETLASTINPST: answers, from block 0 on.
    unsigned askableBlocks = 0;
    /// The channels that have settings of their own, from channel 0 on.
    unsigned channels = 0;
    /// The highest value of a setting: channel mask, end position, silent range.
    std::uint8_t highestSetting = 0;
};

std::span<const CardKindRow> cardKinds();

const CardKindRow& rowOf(CardKind kind);

/// The kind that DISCOVER names; kUnidentified for an unknown name.
CardKind kindNamed(std::string_view name);

/// "a digital input card or an analogue input card": the kinds whose row satisfies
/// `wanted`, to complete "needs ...".
std::string neededKinds(const std::function<bool(const CardKindRow&)>& wanted);

}  // namespace zolt_ports
