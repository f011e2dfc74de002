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

/// Output commands from IO to the cards and input changes from the cards to IO
/// and MON, both at once and as fast as the daemon takes them, each item
/// accounted for. The cards are those of kTrafficBus.
class Traffic {
  public:
    struct Plan {
        std::size_t commands = 0;
        /// Blocks of digital and key cards that change; one more may, since they
        /// come in pairs.
        std::size_t changes = 0;
        /// Readings of the analogue card, each a change; only if it has not been
        /// polled yet when this object is made.
        std::size_t readings = 0;
    };
    struct Result {
        Tally commands;
        Tally reportsAtIo;
        Tally reportsAtMon;
        Tally linesAtMon;

        /// Of the commands' unknown frames, those to cards whose outputs a
        /// discovery sets to values of its own.
        std::size_t presetFrames = 0;

        bool exact() const;
        /// Nothing is wrong that so many losses of the link do not explain. Each
        /// loses at most the one command under way; reports that it costs are
        /// missing on both ports, and lines of IO do not depend on it. It doubles
        /// nothing, keeps the order, and makes up only outputs that stand anew
        /// after the discovery behind it, if there is one.
        bool linkLossExplains(std::size_t losses, bool rediscovers) const;
    };

    /// By the first step the cards have been discovered, cleared before, and
    /// their inputs are 0. Nothing else uses the clients.
    Traffic(BusWatch& bus, NonBlockingClient& io, NonBlockingClient& mon, const Plan& plan);

    /// Makes a step with what the clients have read meanwhile; false when nothing
    /// has happened.
    bool step();
    /// Everything has been sent and seen.
    bool done() const;
    /// What is still under way is taken for lost.
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

/// A card of every kind with outputs, eight digital inputs, a key matrix and an
/// analogue card; at D nobody answers.
extern const char* const kTrafficBus;

}  // namespace reliability
