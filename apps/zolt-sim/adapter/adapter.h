#pragma once

#include <memory>
#include <string>

#include "apps/zolt-sim/adapter/faults.h"
#include "apps/zolt-sim/bytes.h"

namespace zolt_sim {

/// What the adapter asks and reports. The answering thread calls all functions, so each
/// has to return within microseconds.
class AdapterUser {
  public:
    virtual ~AdapterUser() = default;

    /// The output for a complete request, whose payload may be empty.
    virtual WireOutput onRequest(const Bytes& request) = 0;
    /// The output has been put onto the wire. Not called for silence.
    virtual void onSent(const Bytes& request, const WireOutput& output) = 0;
    virtual void onNote(const std::string& text) = 0;
};

/// The simulated USB-serial adapter. While it is plugged in, a thread of its own waits
/// for requests and answers each one as late as a wire would. The adapter has no lock;
/// the owner calls it from one thread at a time.
class Adapter {
  public:
    /// `baud`: speed of the wire in bits per second; 0 answers at once. The user must
    /// outlive the adapter.
    Adapter(AdapterUser& user, unsigned baud);
    ~Adapter();
    Adapter(const Adapter&) = delete;
    Adapter& operator=(const Adapter&) = delete;

    bool plugged() const { return session_ != nullptr; }

    /// Opens a new pseudo-terminal and links it as `linkPath`. Throws Error, and then the
    /// adapter is not plugged in. REQUIRES: the adapter is not plugged in.
    void plug(const std::string& linkPath);

    /// Removes the link; the host's descriptor sees a hang-up.
    void unplug();

  private:
    class Session;

    AdapterUser& user_;
    unsigned baud_;
    std::unique_ptr<Session> session_;
};

}  // namespace zolt_sim
