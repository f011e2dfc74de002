// A whole card bus behind a pseudo-terminal, for programs and for tests in one process.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zolt-sim/cards/bus_file.h"
#include "apps/zolt-sim/cards/bus_model.h"
#include "apps/zolt-sim/control/control.h"
#include "apps/zolt-sim/line/faults.h"
#include "apps/zolt-sim/line/pty_line.h"
#include "apps/zolt-sim/trace.h"

namespace sim {

struct BusOptions {
    // Where the host finds the adapter: a symbolic link, made and removed here.
    std::string link;
    // 8N1; 0 answers at once.
    unsigned baud = 460800;
    // Whether trace() keeps the last 100000 lines.
    bool keepTrace = true;
    // Get the trace lines from the first on; one that is `filtered` obeys the trace control.
    struct Sink {
        Trace::Sink sink;
        bool filtered = true;
    };
    std::vector<Sink> sinks = {};
    TraceFilter filter = TraceFilter::kCommands;
    // What the control "quit" does; without it, quit is refused.
    std::function<void()> quit = {};
};

// All member functions may be called from any thread.
class SimulatedBus : private LineUser {
  public:
    // Plugged in when constructed. Throws std::runtime_error.
    SimulatedBus(const BusLayout& layout, BusOptions options);
    // With the text of a bus file; throws BusFileError too.
    SimulatedBus(std::string_view busText, BusOptions options);
    // Removes the link; the host sees a hang-up.
    ~SimulatedBus() override;

    // Carries out one control line, as written in the user's document.
    ControlAnswer control(std::string_view line);

    // Every trace line so far, polls included, oldest first.
    std::vector<std::string> trace() const;

    // The moment that the trace's times count from.
    Clock::time_point start() const { return trace_.start(); }
    // Puts a line of its own into the trace.
    void note(const std::string& text) { trace_.note(text); }

  private:
    LineOutput onRequest(const Bytes& request) override;
    void onSent(const Bytes& request, const LineOutput& output) override;
    void onNote(const std::string& text) override;

    void keepLine(const std::string& line);
    void plug(const std::string& path);
    void unplug();

    BusOptions options_;
    mutable std::mutex keptLock_;
    std::deque<std::string> kept_;
    Trace trace_;

    std::mutex modelLock_;  // model and faults
    BusModel model_;
    FaultList faults_;

    // Not taken together with modelLock_: unplugging waits for the answering
    // thread, which needs that one.
    std::mutex lineLock_;
    PtyLine line_;
    ControlTarget target_;
};

}  // namespace sim
