#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zolt-sim/adapter/pause.h"
#include "apps/zolt-sim/bytes.h"

namespace zolt_sim {

/// Which lines a filtered sink gets; kCommands leaves out polls and their answers.
enum class TraceFilter { kAll, kCommands, kNone };

/// The filter for "all", "commands" or "none"; nothing for any other word.
std::optional<TraceFilter> parseTraceFilter(std::string_view word);

/// The line for a frame with this payload: "host> 03 | 20 03 02" and
/// "bus>  04 | 21 03 40 00".
std::string hostFrameText(const Bytes& payload);
std::string busFrameText(const Bytes& payload);

/// What happens on the bus, one line per event. The trace puts the time since its
/// construction before each line and gives the lines to its sinks in the order of the
/// events. Any thread may call its functions.
class Trace {
  public:
    enum class Topic {
        kPoll,  ///< left out by TraceFilter::kCommands
        kOther
    };
    /// Called with the lock of the trace held, so it has to return at once.
    using Sink = std::function<void(const std::string& line)>;

    /// The filter applies only to sinks that are `filtered`.
    void addSink(Sink sink, bool filtered);
    void setFilter(TraceFilter filter);
    void record(Topic topic, const std::string& text);
    void note(const std::string& text) { record(Topic::kOther, "note " + text); }

    Clock::time_point start() const { return start_; }

  private:
    struct Output {
        Sink sink;
        bool filtered;
    };

    const Clock::time_point start_ = Clock::now();
    /// Guards the outputs and the filter.
    std::mutex lock_;
    std::vector<Output> outputs_;
    TraceFilter filter_ = TraceFilter::kCommands;
};

}  // namespace zolt_sim
