#pragma once

#include <array>
#include <cstddef>
#include <list>
#include <map>
#include <string>

#include "tests/reliability/accounts/diary.h"
#include "tests/reliability/accounts/ledger.h"
#include "tests/reliability/accounts/output_commands.h"
#include "tests/reliability/accounts/watched_daemon.h"
#include "tests/reliability/soak/descriptor_limit.h"
#include "tests/reliability/soak/log_disk.h"
#include "tests/reliability/soak/strange_adapters.h"

namespace reliability {

/// The bench with all that a storm does to it: clients too many, strange
/// adapters, a log that moves; and with an account of the output commands that
/// are sent in the midst of it.
class SoakStage : public WatchedDaemon {
  public:
    SoakStage();

    void tick() override;

    /// What clients, bus and actions do is noted there.
    Diary& diary() { return diary_; }

    /// Sends so many commands whose way is accounted for, when the IO client is
    /// in a state to: everything sent before has been read, and the cards are
    /// known. Nothing otherwise.
    void sendOutputs(std::size_t count);
    /// Whether the frames at the cards are those of sendOutputs.
    void accountForOutputs(bool on) { accounting_ = on; }
    std::size_t outputsUnderWay() const;
    /// Of sendOutputs since beginAccount. At most explainedLosses() may be lost: a
    /// frame that may have been under way when the adapter was unplugged, packets
    /// that the daemon had not read when their connection ended, and what had not
    /// come when the daemon was ended.
    Tally outputs() const;
    std::size_t explainedLosses();
    /// Forgets the commands sent so far; one that comes yet, nobody has sent.
    void beginAccount();
    /// A discovery that clears the cards is under way or has been disturbed:
    /// until the next calm nobody knows which commands are legal.
    bool cardsKnown() const { return cardsKnown_; }
    void setCardsKnown(bool known) { cardsKnown_ = known; }

    /// Sends on one of the three clients; on the monitor, as long as what is typed there, and kept
    /// for good, stays within bounds.
    void type(NonBlockingClient& client, const std::string& text);
    std::size_t typedOnMonitor() const { return typedOnMonitor_; }
    /// What the daemon holds for it, at least.
    std::size_t monitorKib() const;

    /// Has this client send a byte each second, unless one is at it already.
    void dawdle(NonBlockingClient& client, const std::string& text);

    /// A further client, beside the one that the port has.
    void addClient(std::uint16_t port);
    std::size_t otherClients() const { return others_.size(); }
    void removeOtherClients() { others_.clear(); }
    /// How often the daemon has greeted the three ports' own clients.
    std::size_t connections();

    /// The adapter comes back under this name; without one, under the last.
    void plugIn(const std::string& link = "");
    /// A fault that may cost the link or bend an answer.
    void spoil(const std::string& fault);
    StrangeAdapters& strangers() { return strangers_; }

    LogDisk& disk() { return disk_; }
    /// Ends by itself. A return of the adapter meanwhile is not measured.
    void limitDescriptors(std::size_t limit, std::chrono::milliseconds duration);

    /// SIGTERM, and another daemon. What waits in the queues goes with the first.
    void restart();

    /// Takes everything bad away: faults, strange adapters, clients too many or
    /// slow, stalls, shortages; the adapter is plugged in and the log folder in
    /// its place.
    void endStorm();

  private:
    struct Dawdler {
        NonBlockingClient* client = nullptr;
        std::string rest;
        support::Clock::time_point due;
    };

    void takeFrames();
    void sendSlowly();

    Diary diary_;
    OutputCommands commands_;
    std::map<unsigned, Ledger> ledgers_;
    bool accounting_ = true;
    bool cardsKnown_ = false;
    std::size_t excused_ = 0;
    std::size_t unseenBefore_ = 0;
    std::size_t typedOnMonitor_ = 0;
    std::list<NonBlockingClient> others_;
    std::string link_ = "/dev/ttyUSB0";
    StrangeAdapters strangers_;
    Dawdler dawdler_;
    LogDisk disk_;
    DescriptorLimit descriptors_;
};

}  // namespace reliability
