// The serial line of the simulated adapter: answers what the host sends, as
// late as a wire would.
#pragma once

#include <memory>
#include <string>

#include "apps/zolt-sim/line/faults.h"
#include "apps/zolt-sim/text.h"

namespace sim {

// What the line asks and tells; called on the answering thread, so it has to
// return within microseconds.
class LineUser {
  public:
    virtual ~LineUser() = default;

    // A complete request; its payload may be empty.
    virtual LineOutput onRequest(const Bytes& request) = 0;
    // The output has been put onto the line; not called for silence.
    virtual void onSent(const Bytes& request, const LineOutput& output) = 0;
    virtual void onNote(const std::string& text) = 0;
};

// Not thread-safe: the owner lets one thread at a time call it. While plugged
// in, a thread of its own blocks on the line and does nothing but answer.
class PtyLine {
  public:
    // `baud` 0 answers at once. The user must outlive the line.
    PtyLine(LineUser& user, unsigned baud);
    ~PtyLine();
    PtyLine(const PtyLine&) = delete;
    PtyLine& operator=(const PtyLine&) = delete;

    bool plugged() const { return session_ != nullptr; }

    // Opens a new pseudo-terminal and links it as `linkPath`. Throws
    // std::runtime_error, and then is not plugged in.
    void plug(const std::string& linkPath);

    // The link vanishes and the host's descriptor sees a hang-up.
    void unplug();

  private:
    class Session;

    LineUser& user_;
    unsigned baud_;
    std::unique_ptr<Session> session_;
};

}  // namespace sim
