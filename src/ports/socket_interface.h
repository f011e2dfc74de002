#pragma once

#include <atomic>
#include <string>

#include "common/byte_list.h"
#include "core/configuration.h"
#include "core/logger.h"
#include "core/zlqueue.h"
#include "ports/framing.h"
#include "thread/Thread.h"
#include "thread/loop_pause.h"

/// One TCP listener with one client at a time: a worker that carries bytes between its
/// client and two queues and interprets none of them. Every read is one item of the request
/// queue; every item of the reply queue is written, one per cycle. Owned by ZOLT.
///
/// The listening socket is closed together with the client and comes back about four seconds
/// later; replies left over go to the next client.
class SOCKET_INTERFACE final : public CThread {
  public:
    /// `requests` takes what clients send. The worker runs when the constructor returns.
    /// REQUIRES: `requests` outlives this object.
    SOCKET_INTERFACE(INTERFACE_DESCRIPTOR settings, LOGGER logger, ZLQUEUE* requests,
                     FramingMode mode);
    ~SOCKET_INTERFACE();
    /// Ends the connection and the worker, which may take the worker's pauses, some seconds.
    /// The object is only good for destruction afterwards.
    void end() ZOLT_EXCLUDES(lock_);

    /// Opens the listening socket; true when it listens. The owner calls this once after
    /// construction, the worker later. An interface that does not listen at first never
    /// does.
    bool Init() ZOLT_EXCLUDES(lock_);

    using CThread::OnTask;
    /// Runs one cycle on the worker. Always true.
    bool OnTask() override;

    /// The master loop ends the client connection. This only shuts the sockets down, which
    /// the client sees and which wakes the worker from accept and write; the worker closes
    /// them, so that no number is reused under it.
    void CloseByCommand() ZOLT_EXCLUDES(lock_);

    /// The master loop has a signal logged.
    void mf_SIGhandler(int signal);

    /// The interface's own copy, with the live connection state and the pause.
    INTERFACE_DESCRIPTOR descriptor;
    /// The items for the client; the master loop writes them.
    ZLQUEUE replyQueue;

  private:
    enum class Readable { kNo, kYes, kError };

    // These two write log lines with the interface's name in them.
    template <typename... Pieces>
    void info(const char* before, const Pieces&... after) {
        logger_.info(before, descriptor.name, after...);
    }
    template <typename... Pieces>
    void error(const char* before, const Pieces&... after) {
        logger_.error(before, descriptor.name, after...);
    }
    bool connected() const;
    int clientSocket() ZOLT_EXCLUDES(lock_);

    // socket_listen.cpp: from listening to a client, and back
    void acceptClient() ZOLT_EXCLUDES(lock_);
    void queueBanner();
    void reopen() ZOLT_EXCLUDES(lock_);
    void closeSockets() ZOLT_EXCLUDES(lock_);
    void shutDownSockets() const ZOLT_REQUIRES(lock_);

    // socket_task.cpp: the cycle with a client, whose socket is -1 after a failed accept
    void serveClient(int client) ZOLT_EXCLUDES(lock_);
    static Readable readable(int client);
    bool readFrom(int client);
    void loseClient() ZOLT_EXCLUDES(lock_);
    /// Writes to the socket that the worker has then: -1 once the client is lost.
    void writeToClient(bool clientLost) ZOLT_EXCLUDES(lock_);
    void park();

    // Set by the constructor; each object guards itself.

    LOGGER logger_;
    ZLQUEUE* const requests_;
    const FramingMode mode_;
    LoopPause pause_;
    /// The number of cycles in a row in which the interface was closed. CloseByCommand sets
    /// it back.
    std::atomic<int> reopenCounter_{0};

    /// CloseByCommand and the worker both touch the two sockets, the connection states that
    /// go with them, and the replies that are taken out. No thread holds this lock while a
    /// socket call may block.
    CMutexClass lock_;

    /// The worker alone closes the sockets and sets them to -1.
    int listeningSocket_ ZOLT_GUARDED_BY(lock_) = -1;
    int clientSocket_ ZOLT_GUARDED_BY(lock_) = -1;
};
