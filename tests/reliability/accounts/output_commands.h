#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace reliability {

/// A command for IO, without a line end, and the frame that the card must get for it.
struct OutputCommand {
    unsigned card = 0;
    std::string line;
    /// The bytes in hexadecimal: "10 05 02 FF FB".
    std::string frame;
};

/// Commands for the five cards with outputs: 0 servo, 5 digital-output, 9 ir, A motor, E lcd.
/// Each command has a running number in it, so that commands that are under way at the same
/// time differ.
class OutputCommands {
  public:
    /// Starts with the outputs that cards have after a discovery of cleared cards.
    OutputCommands();

    /// The next command; the five cards take turns.
    OutputCommand next();
    /// The next command for card 9 or E, which take turns: their commands do not depend on
    /// what was sent before.
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
