#include "apps/zolt-sim/trace.h"

#include <array>
#include <cstdio>

#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

std::string frameText(const char* direction, const Bytes& payload) {
    std::string text =
        direction + zolt_text::hexByte(static_cast<std::uint8_t>(payload.size())) + " |";
    if (!payload.empty()) {
        text += " " + zolt_text::hexBytes(payload);
    }
    return text;
}

std::string timeText(Clock::duration time) {
    constexpr long long kPerSecond = 1000000;
    const long long micros = std::chrono::duration_cast<std::chrono::microseconds>(time).count();
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04lld.%06lld ", micros / kPerSecond,
                  micros % kPerSecond);
    return text.data();
}

}  // namespace

std::optional<TraceFilter> parseTraceFilter(std::string_view word) {
    if (word == "all") {
        return TraceFilter::kAll;
    }
    if (word == "commands") {
        return TraceFilter::kCommands;
    }
    if (word == "none") {
        return TraceFilter::kNone;
    }
    return std::nullopt;
}

std::string hostFrameText(const Bytes& payload) {
    return frameText("host> ", payload);
}
std::string busFrameText(const Bytes& payload) {
    return frameText("bus>  ", payload);
}

void Trace::addSink(Sink sink, bool filtered) {
    const std::lock_guard guard(lock_);
    outputs_.push_back({std::move(sink), filtered});
}

void Trace::setFilter(TraceFilter filter) {
    const std::lock_guard guard(lock_);
    filter_ = filter;
}

void Trace::record(Topic topic, const std::string& text) {
    const std::lock_guard guard(lock_);
    const std::string line = timeText(Clock::now() - start_) + text;
    const bool passes = filter_ == TraceFilter::kAll ||
                        (filter_ == TraceFilter::kCommands && topic != Topic::kPoll);
    for (const Output& output : outputs_) {
        if (passes || !output.filtered) {
            output.sink(line);
        }
    }
}

}  // namespace zolt_sim
