#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "bus/perifcard.h"
#include "bus/serial_interface.h"
#include "common/byte_list.h"
#include "control/console.h"
#include "control/daemon_console.h"
#include "core/configuration.h"
#include "core/logger.h"
#include "core/zlqueue.h"
#include "ports/socket_interface.h"
#include "thread/loop_pause.h"

/// The daemon: owns the configuration, the queues, the card table and the four
/// workers, and runs the master loop that moves everything between them. One per
/// process; all of it is used by the main thread alone, except what the workers
/// share through queues and atomics.
class ZOLT final {
  public:
    /// The value of the signal flag as long as no signal has come.
    static constexpr int kNoSignal = -1;

    /// `signalFlag` holds kNoSignal until a signal handler, in any thread, stores the
    /// signal's number there; it outlives this object.
    ZOLT(LOGGER logger, int* signalFlag);
    /// Stops the workers. The daemon ends through exit() instead, which leaves
    /// them to the end of the process.
    ~ZOLT();
    ZOLT(const ZOLT&) = delete;
    ZOLT& operator=(const ZOLT&) = delete;

    /// Loads the configuration and starts the log; false when the daemon must
    /// not start.
    bool InitProgramData();
    /// Builds and starts the CAE, IO and MON interfaces and the serial link.
    void InitInterfaces();
    /// Runs the master loop; returns after SIGTERM or SIGINT.
    void MasterThread();

  private:
    static CONFIG_DESCRIPTOR ReadConfig();

    // master_loop.cpp: the steps of one cycle, each of which takes one item at most
    bool stopRequested();
    void startMissingWorkers();
    void forwardBusReport();
    void handleIoLine();
    void handleCaeLine();
    bool ParseOutCommand(const ByteList& list);
    /// Queues `text` for the console's client, and a prompt.
    void reportIllegalCommand(const std::string& text);

    std::unique_ptr<SOCKET_INTERFACE> startInterface(const INTERFACE_DESCRIPTOR& settings,
                                                     ZLQUEUE* requests);

    LOGGER logger_;
    CONFIG_DESCRIPTOR config_;
    LoopPause pause_;
    std::unique_ptr<ZLQUEUE> ioRequests_;
    std::unique_ptr<ZLQUEUE> caeRequests_;
    /// The MON interface fills it and nothing reads it: a monitor only listens.
    std::unique_ptr<ZLQUEUE> monRequests_;
    std::unique_ptr<ZLQUEUE> busReports_;
    std::unique_ptr<SOCKET_INTERFACE> cae_;
    std::unique_ptr<SOCKET_INTERFACE> io_;
    std::unique_ptr<SOCKET_INTERFACE> mon_;
    std::unique_ptr<SERIAL_INTERFACE> serial_;
    /// Both are built with the interfaces, whose separators and queues they use.
    std::optional<DaemonConsole> daemonConsole_;
    std::optional<Console> console_;
    /// False as long as the system has refused a worker its thread; the master loop
    /// asks again from time to time.
    bool workersRunning_ = false;
    std::chrono::steady_clock::time_point nextWorkerStart_;
    int* signalFlag_;
    /// Shared with the serial link.
    CardTable cards_;
    /// Room that is set aside for extensions; nothing uses it.
    std::unique_ptr<std::array<char, 16>> workArea_;
};
