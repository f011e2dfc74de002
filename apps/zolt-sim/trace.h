// What happens on the bus, one line per event.
#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/zolt-sim/line/pause.h"
#include "apps/zolt-sim/text.h"

namespace sim {

enum class TraceFilter { kAll, kCommands, kNone };

// "all", "commands" or "none"; nothing for any other word.
std::optional<TraceFilter> parseTraceFilter(std::string_view word);

// "host> 03 | 20 03 02" and "bus>  04 | 21 03 40 00"; the frame without its length byte.
std::string hostFrameText(const Bytes& payload);
std::string busFrameText(const Bytes& payload);

// Hands every line, with the time since construction in front, to its sinks in
// the order of the events. May be used by any thread.
class Trace {
  public:
    enum class Topic {
        kPoll,  // left out by TraceFilter::kCommands
        kOther
    };
    // Called under a lock: has to return at once.
    using Sink = std::function<void(const std::string& line)>;

    // A sink that is not filtered gets every line, whatever the filter says.
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
    std::mutex lock_;
    std::vector<Output> outputs_;
    TraceFilter filter_ = TraceFilter::kCommands;
};

}  // namespace sim
