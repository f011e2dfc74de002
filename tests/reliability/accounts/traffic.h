#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "tests/reliability/accounts/bus_watch.h"
#include "tests/reliability/accounts/input_cards.h"
#include "tests/reliability/accounts/ledger.h"
#include "tests/reliability/accounts/non_blocking_client.h"
#include "tests/reliability/accounts/output_commands.h"

namespace reliability {

/// Sends output commands from IO to the cards and input changes from the cards to IO and MON,
/// both at once and as fast as the daemon takes them, and accounts for every item. The cards
/// are those of kTrafficBus.
class Traffic {
  public:
    struct Plan {
        std::size_t commands = 0;
        /// The number of changes of blocks of digital and key cards. One more may be made,
        /// since some come in pairs.
        std::size_t changes = 0;
        /// The number of readings of the analogue card, each of which is a change.
        /// REQUIRES: 0, or the card has not been polled when this object is made.
        std::size_t readings = 0;
    };
    struct Result {
        Tally commands;
        Tally reportsAtIo;
        Tally reportsAtMon;
        Tally linesAtMon;

        /// The unknown frames of `commands` that went to cards whose outputs a discovery
        /// sets to initial values.
        std::size_t presetFrames = 0;

        bool exact() const;
        /// True if `losses` losses of the link explain everything that is wrong. One loss
        /// loses at most the one command that is under way. The reports that it loses are
        /// missing on both ports; lines of IO do not depend on the link. A loss doubles
        /// nothing and keeps the order. It causes unknown frames only if a discovery
        /// follows (`rediscovers`), which sets outputs to initial values.
        bool linkLossExplains(std::size_t losses, bool rediscovers) const;
    };

    /// REQUIRES: by the first step the cards have been cleared and discovered, their inputs
    /// are 0, and the clients are used only here.
    Traffic(BusWatch& bus, NonBlockingClient& io, NonBlockingClient& mon, const Plan& plan);

    /// Handles what the clients have read since the last step, and sends more. False if
    /// nothing has happened.
    bool step();
    /// True if everything has been sent and seen.
    bool done() const;
    /// Counts everything that is still under way as lost.
    void close();
    Result result() const;

  private:
    bool takeFrames();
    bool takeIo();
    bool takeMon();
    bool feedCommands();
    bool feedInputs();
    void expectReports(unsigned card, const std::vector<std::string>& reports);
    std::size_t reportsUnderWay(unsigned card) const;

    BusWatch& bus_;
    NonBlockingClient& io_;
    NonBlockingClient& mon_;
    Plan plan_;
    OutputCommands outputs_;
    OutputCommand next_;
    std::vector<InputCard> cards_;
    AnalogueScript analogue_;
    std::size_t commandsSent_ = 0;
    std::size_t changesMade_ = 0;
    std::string fromIo_;
    std::string fromMon_;
    std::map<unsigned, Ledger> frames_;
    std::map<unsigned, Ledger> atIo_;
    std::map<unsigned, Ledger> atMon_;
    Ledger lines_;
};

/// The bus file: a card of every kind with outputs, eight digital inputs, a key matrix and an
/// analogue card. The card at D does not answer.
extern const char* const kTrafficBus;

}  // namespace reliability
