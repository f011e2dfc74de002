#include "apps/zolt-sim/simulated_bus.h"

#include <utility>

#include "apps/zolt-sim/cards/request.h"
#include "apps/zolt-sim/error.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

Trace::Topic topicOf(const Bytes& request) {
    return requestKind(request) == RequestKind::kPoll ? Trace::Topic::kPoll : Trace::Topic::kOther;
}

}  // namespace

SimulatedBus::SimulatedBus(const BusLayout& layout, BusOptions options)
    : options_(std::move(options)),
      model_(layout),
      adapter_(*this, options_.baud),
      target_{modelLock_,
              model_,
              faults_,
              trace_,
              [this](const std::string& path) { plug(path); },
              [this] { unplug(); },
              [this] {
                  if (!options_.quit) {
                      throw Error("this bus ends with the program that made it");
                  }
                  options_.quit();
              }} {
    if (options_.keepTrace) {
        trace_.addSink([this](const std::string& line) { keepLine(line); }, false);
    }
    for (const BusOptions::Sink& entry : options_.sinks) {
        trace_.addSink(entry.sink, entry.filtered);
    }
    trace_.setFilter(options_.filter);
    adapter_.plug(options_.link);
    trace_.note("opened as " + options_.link);
}

SimulatedBus::SimulatedBus(std::string_view busText, BusOptions options)
    : SimulatedBus(parseBusText(busText, "bus"), std::move(options)) {}

SimulatedBus::~SimulatedBus() {
    const std::lock_guard guard(adapterLock_);
    adapter_.unplug();
}

ControlAnswer SimulatedBus::control(std::string_view line) {
    return runControl(line, target_);
}

std::vector<std::string> SimulatedBus::trace() const {
    const std::lock_guard guard(keptLock_);
    return {kept_.begin(), kept_.end()};
}

WireOutput SimulatedBus::onRequest(const Bytes& request) {
    const std::lock_guard guard(modelLock_);
    trace_.record(topicOf(request), hostFrameText(request));
    const BusModel::Reply reply = model_.answer(request);
    if (!reply.change.empty()) {
        trace_.record(Trace::Topic::kOther, reply.change);
    }
    WireOutput output = faults_.apply(request, reply.answer);
    if (output.struckBy) {
        trace_.note("fault " + faultName(*output.struckBy));
    }
    return output;
}

void SimulatedBus::onSent(const Bytes& request, const WireOutput& output) {
    if (output.faulty) {
        trace_.record(Trace::Topic::kOther, "raw>  " + zolt_text::hexBytes(output.bytes));
        return;
    }
    trace_.record(topicOf(request), busFrameText({output.bytes.begin() + 1, output.bytes.end()}));
}

void SimulatedBus::onNote(const std::string& text) {
    trace_.note(text);
}

void SimulatedBus::keepLine(const std::string& line) {
    constexpr std::size_t kMostKept = 100000;
    const std::lock_guard guard(keptLock_);
    kept_.push_back(line);
    if (kept_.size() > kMostKept) {
        kept_.pop_front();
    }
}

void SimulatedBus::plug(const std::string& path) {
    const std::lock_guard guard(adapterLock_);
    if (adapter_.plugged()) {
        throw Error("the adapter is plugged in already");
    }
    const std::string& link = path.empty() ? options_.link : path;
    adapter_.plug(link);
    options_.link = link;
    trace_.note("plugged in as " + link);
}

void SimulatedBus::unplug() {
    const std::lock_guard guard(adapterLock_);
    if (!adapter_.plugged()) {
        throw Error("the adapter is not plugged in");
    }
    adapter_.unplug();
    trace_.note("unplugged");
}

}  // namespace zolt_sim
