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

/// A watched daemon and everything that a storm does to it: too many clients, strange
/// adapters, a log that moves. It also accounts for the output commands that are sent during
/// a storm.
class SoakStage : public WatchedDaemon {
  public:
    SoakStage();

    void tick() override;

    /// The record of what clients, bus and actions do.
    Diary& diary() { return diary_; }

    /// Sends `count` commands and accounts for them. Sends nothing if the daemon has not
    /// read everything that the IO client sent before, or if the cards are not known.
    void sendOutputs(std::size_t count);
    /// Says whether the frames that the cards get belong to sendOutputs().
    void accountForOutputs(bool on) { accounting_ = on; }
    std::size_t outputsUnderWay() const;
    /// The commands of sendOutputs() since beginAccount(). At most explainedLosses() of them
    /// may be lost: a frame that may have been under way when the adapter was unplugged,
    /// packets that the daemon had not read when their connection ended, and commands that
    /// had not arrived when the daemon was ended.
    Tally outputs() const;
    std::size_t explainedLosses();
    /// Forgets the commands sent so far: one that still arrives counts as never sent.
    void beginAccount();
    /// To be called with false when a discovery that clears the cards begins: which commands
    /// are legal is then unknown until the next calm, and no output command is sent.
    void setCardsKnown(bool known) { cardsKnown_ = known; }

    /// Sends the text on one of the three clients. On the monitor, whose input the daemon
    /// keeps forever, it sends nothing once a total of 16 KiB is reached.
    void type(NonBlockingClient& client, const std::string& text);
    /// The memory that the daemon holds at least for what was typed on the monitor.
    std::size_t monitorKib() const;

    /// Sends the text one byte per second on this client, unless such a text is being sent.
    void dawdle(NonBlockingClient& client, const std::string& text);

    /// Connects a second client to a port.
    void addClient(std::uint16_t port);
    std::size_t otherClients() const { return others_.size(); }
    void removeOtherClients() { others_.clear(); }
    /// The number of greetings that the three clients of the stage have got.
    std::size_t connections();

    /// Plugs the adapter in under this name, or under its last name if there is none.
    void plugIn(const std::string& link = "");
    /// Sets a fault that may cost the link or change an answer.
    void spoil(const std::string& fault);
    StrangeAdapters& strangers() { return strangers_; }

    LogDisk& disk() { return disk_; }
    /// Limits the descriptors of the daemon for this time. A return of the adapter in this
    /// time is not measured.
    void limitDescriptors(std::size_t limit, std::chrono::milliseconds duration);

    /// Ends the daemon by SIGTERM and starts another. What waits in the queues is lost.
    void restart();

    /// Removes everything bad: faults, strange adapters, additional and slow clients, stalls
    /// and shortages. Afterwards the adapter is plugged in and the log folder is in its
    /// place.
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
