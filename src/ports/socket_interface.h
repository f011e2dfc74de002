#pragma once

#include <atomic>
#include <string>

#include "common/byte_list.h"
#include "core/descriptors.h"
#include "core/logger.h"
#include "core/zlqueue.h"
#include "ports/framing.h"
#include "thread/LoopPause.h"
#include "thread/Thread.h"

/// One TCP listener with one client at a time: a worker that carries bytes
/// between its client and two queues and interprets none of them. Every read is
/// one item of the request queue; every item of the reply queue is written, one
/// per cycle. Owned by ZOLT.
///
/// The listening socket is closed together with the client and comes back about
/// four seconds later; replies left over go to the next client.
class SOCKET_INTERFACE final : public CThread {
  public:
    /// `requests` takes what clients send and outlives this object; `mode` is
    /// framing::kText or kBinary. The worker runs when the constructor returns.
    SOCKET_INTERFACE(INTERFACE_DESCRIPTOR settings, LOGGER logger, ZLQUEUE* requests, int mode);
    ~SOCKET_INTERFACE();
    /// Ends the connection and the worker; may take the worker's pauses, some
    /// seconds. The object is only good for destruction afterwards.
    void End();

    /// Opens the listening socket; true when it listens. Once by the owner after
    /// construction, later by the worker. An interface that does not listen at
    /// first never does.
    bool Init();

    using CThread::OnTask;
    /// One cycle; runs on the worker. Always true.
    bool OnTask() override;

    /// Master loop: ends the client connection. Only shuts the sockets down,
    /// which the client sees and which wakes the worker from accept and write;
    /// the worker closes them, so that no number is reused under it.
    void CloseByCommand();

    /// Master loop: logs the signal.
    void mf_SIGhandler(int signal);

    /// The interface's own copy: the live connection state and the pause.
    INTERFACE_DESCRIPTOR descriptor;
    /// Items for the client; written by the master loop.
    ZLQUEUE replyQueue;

  private:
    enum class Readable { kNo, kYes, kError };

    // Log lines around the interface's name.
    template <typename... Pieces>
    void info(const char* before, const Pieces&... after) {
        logger_.Info(before, descriptor.name, after...);
    }
    template <typename... Pieces>
    void error(const char* before, const Pieces&... after) {
        logger_.Error(before, descriptor.name, after...);
    }
    bool connected() const;

    // socket_listen.cpp: from listening to a client, and back
    void acceptClient();
    void queueBanner();
    void reopen();
    void closeSockets();
    /// Under the lock.
    void shutDownSockets() const;

    // socket_task.cpp: the cycle with a client
    void serveClient();
    Readable clientReadable() const;
    bool readFromClient();
    void loseClient();
    void writeToClient(bool clientLost);
    void park();

    LoopPause pause_;
    LOGGER logger_;
    ZLQUEUE* requests_;
    const int mode_;
    /// Cycles spent closed. CloseByCommand sets it back.
    std::atomic<int> reopenCounter_{0};
    /// Guards what CloseByCommand and the worker both touch: the two numbers
    /// below, the states they go with, and taking a reply out. Never held while
    /// a socket call may block. It has no count: a function that holds it calls
    /// none that takes it.
    CMutexClass lock_;
    /// Closed and set to -1 by the worker alone.
    int listeningSocket_ = -1;
    int clientSocket_ = -1;
};
