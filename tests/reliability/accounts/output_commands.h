#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace reliability {

/// A command for IO, without a line end, and what the card has to get for it.
struct OutputCommand {
    unsigned card = 0;
    std::string line;
    /// In hexadecimal: "10 05 02 FF FB".
    std::string frame;
};

/// Commands for the five cards that have outputs, each with a running number in
/// it, so that no two that are under way at the same time are the same:
/// 0 servo, 5 digital-output, 9 ir, A motor, E lcd.
class OutputCommands {
  public:
    /// The cards' outputs stand as they do after a discovery of cleared cards.
    OutputCommands();

    /// One card after the other.
    OutputCommand next();
    /// Only for the two cards whose commands do not depend on what was sent
    /// before: 9 and E in turn.
    OutputCommand nextWithoutState();

  private:
    struct BlockCard {
        unsigned address;
        std::vector<unsigned> values;
        std::size_t commands = 0;
    };

    OutputCommand block(BlockCard& card);
    OutputCommand stream();
    OutputCommand text();

    std::vector<BlockCard> blockCards_;
    std::size_t turn_ = 0;
    unsigned number_ = 0;
};

}  // namespace reliability
