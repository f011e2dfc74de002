#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <list>
#include <span>
#include <string>

#include "bus/perifcard.h"
#include "bus/serial_port.h"
#include "bus/wire.h"
#include "core/logger.h"
#include "core/zlqueue.h"
#include "thread/Thread.h"
#include "thread/loop_pause.h"
#include "thread/shared_field.h"

/// The device paths in a listing of /dev, one name per line, in its order. Lines
/// are read in pieces of at most 9 characters and each piece loses its last one,
/// so names of more than 8 characters come out as several wrong paths.
std::list<std::string> devicePathsIn(std::FILE* listing);

/// The card bus link: a worker that alone talks to the bus. It finds the adapter
/// and keeps the port open, sends the frames of the command queues one at a
/// time, waits for each answer, keeps the card table and reports input changes.
/// Owned by ZOLT; knows nothing of TCP.
class SERIAL_INTERFACE final : public CThread {
  public:
    enum class LinkState {
        kClosed = 0,     ///< the next cycle opens the port
        kUnderTest = 1,  ///< port open, controller not heard yet
        kReady = 3,      ///< controller found
    };

    /// An empty device path searches the ttyUSB devices whenever the link is down; a given
    /// one is used as it is. The worker runs when the constructor returns.
    /// REQUIRES: `cards` and `reports` outlive this object.
    SERIAL_INTERFACE(std::string devicePath, LOGGER logger, CardTable& cards, ZLQUEUE* reports,
                     bool polling, bool autoDiscover);
    ~SERIAL_INTERFACE();

    using CThread::OnTask;
    /// One cycle; runs on the worker. Always true.
    bool OnTask() override;

    /// The frames for a bus address, or for the controller (wire::kSystemQueue). Any thread
    /// may call this and write to the queue.
    /// REQUIRES: `index` is below wire::kQueues.
    ZLQUEUE& commandQueue(std::size_t index) { return commandQueues_[index]; }

    /// The master loop has the signal logged and the port closed under the worker, whose next
    /// exchange then times out.
    void mf_SIGhandler(int signal);

    /// The state of the link, for tests; any thread may call this.
    LinkState linkState() const { return linkState_; }

    // The master loop writes these two, and the worker reads them once per cycle.

    /// Whether the link polls cards at all.
    SharedField<bool> globalPolling;
    /// The pause per cycle in microseconds.
    SharedField<std::int32_t> threadDelay;

  private:
    // The worker alone calls the functions below.

    // serial_setup.cpp: finding the adapter
    bool Init();
    bool initGivenPort();
    bool initSearchedPort();
    static std::list<std::string> GetUSBDevices();
    bool SetSerialParams();
    bool HardwareCheck(const std::string& devicePath);

    // serial_exchange.cpp: one request and its answer
    ByteList Comm2HW(ByteList request);
    void sendFrame(const ByteList& request);
    ByteList awaitAnswer(int attemptLimit);
    void receive(std::span<const char> bytes);

    // serial_task.cpp: the cycle
    /// An answer's payload, zero-padded.
    using Answer = std::array<char, wire::kMaxAnswer + 1>;
    void openLink();
    void serveQueues();
    void queuePolls();
    void loseLink();
    void actOn(const ByteList& list);
    void takeDiscovery(const Answer& answer);
    void takePioAnswer(const Answer& answer);
    void takePollAnswer(const Answer& answer);
    /// Queues the reports of the card that the answer names.
    void WriteToQueue(const char* answer);
    void reportChanges(std::uint8_t address);

    // The constructor sets the next members; several threads use them, and each member
    // guards itself.

    LOGGER logger_;
    /// Whether the link searches the ttyUSB devices; else devicePath_ is fixed.
    const bool search_;
    const bool autoDiscover_;
    SerialPort port_;
    std::atomic<LinkState> linkState_{LinkState::kClosed};
    CardTable& cards_;
    ZLQUEUE* const reports_;
    LoopPause pause_;
    std::array<ZLQUEUE, wire::kQueues> commandQueues_;

    // The worker alone uses the members below.

    std::string devicePath_;
    bool waitingForAnswer_ = false;
    /// Bytes that came since the request; the buffer keeps the first of them.
    std::size_t receivedCount_ = 0;
    std::array<char, wire::kReceiveBuffer> receiveBuffer_{};
};
