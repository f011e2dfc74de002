#include "tests/reliability/accounts/bus_watch.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace reliability {
namespace {

// How payloads begin in the trace.
constexpr std::string_view kOutput = "10 ";
constexpr std::string_view kPoll = "20 ";
constexpr std::string_view kCheck = "40 ";
constexpr std::string_view kControllerAnswer = "06 31 ";
constexpr std::string_view kTornRequest = "note incomplete request dropped";

std::string_view payloadOf(std::string_view text) {
    const auto bar = text.find("| ");
    return bar == std::string_view::npos ? std::string_view() : text.substr(bar + 2);
}

// The card that an output or poll request names: "20 0F 06" is for card 15.
std::size_t cardOf(std::string_view payload) {
    const std::string digits(payload.substr(std::min<std::size_t>(3, payload.size()), 2));
    return digits.empty() ? 0 : std::stoul(digits, nullptr, 16);
}

zolt_sim::BusOptions optionsFor(const std::string& link,
                                std::function<void(const std::string&)> onLine) {
    zolt_sim::BusOptions options;
    options.link = link;
    options.baud = 0;
    options.keepTrace = false;
    options.sinks = {{std::move(onLine), false}};
    return options;
}

}  // namespace

BusWatch::BusWatch(const std::string& busText, const std::string& link)
    : bus_(std::string_view(busText),
           optionsFor(link, [this](const std::string& line) { onLine(line); })) {}

void BusWatch::control(const std::string& line) {
    if (observer_) observer_(line);
    const auto answer = bus_.control(line);
    if (!answer.ok()) throw std::runtime_error("\"" + line + "\": " + answer.error);
}

void BusWatch::unplug() {
    control("unplug");
    plugged_ = false;
    const std::lock_guard guard(lock_);
    // The daemon sends a request only after the previous one has been answered. On a dead
    // line it sends one request before it notices. While it waits for an answer, the bus
    // has seen the only request that was sent.
    if (lastRequestAnswered_) ++counts_.perhapsUnseen;
    loseLink();
    returned_.reset();
}

void BusWatch::plug(const std::string& link, bool strangers) {
    {
        const std::lock_guard guard(lock_);
        returned_ = support::Clock::now();
        amongStrangers_ = strangers;
    }
    control("plug " + link);
    plugged_ = true;
}

void BusWatch::strangerCame() {
    const std::lock_guard guard(lock_);
    amongStrangers_ = true;
}

void BusWatch::dropMeasurement() {
    const std::lock_guard guard(lock_);
    returned_.reset();
}

std::vector<std::string> BusWatch::takeOutputs() {
    const std::lock_guard guard(lock_);
    return std::exchange(outputs_, {});
}

BusWatch::Counts BusWatch::counts() const {
    const std::lock_guard guard(lock_);
    return counts_;
}

std::size_t BusWatch::pollsOf(unsigned address) const {
    const std::lock_guard guard(lock_);
    return polls_.at(address);
}

void BusWatch::onLine(std::string_view line) {
    // "0002.018298 host> 05 | 10 05 02 FF FB": the time ends at the first blank.
    const std::string_view text = line.substr(std::min(line.find(' ') + 1, line.size()));
    const std::lock_guard guard(lock_);
    if (text.starts_with("host> ")) {
        lastRequestAnswered_ = false;
        onHostFrame(payloadOf(text));
    } else if (text.starts_with("bus> ")) {
        lastRequestAnswered_ = true;
        if (payloadOf(text).starts_with(kControllerAnswer)) found_ = true;
    } else if (text.starts_with("raw> ")) {
        // The daemon may take even an answer that a fault has changed for a valid one.
        lastRequestAnswered_ = true;
    } else if (text == "note host closed") {
        // The bus still reads what the daemon sent before.
        loseLink();
    } else if (text.starts_with(kTornRequest)) {
        ++counts_.perhapsUnseen;
    }
}

void BusWatch::onHostFrame(std::string_view payload) {
    if (payload.empty() || payload.starts_with(kCheck)) return;
    if (payload.starts_with(kOutput)) {
        outputs_.emplace_back(payload);
    } else if (payload.starts_with(kPoll)) {
        ++counts_.polls;
        ++polls_.at(cardOf(payload) % polls_.size());
    }
    if (inService_) return;
    inService_ = true;
    if (std::exchange(everInService_, true)) ++counts_.recoveries;
    if (returned_) {
        const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(
            support::Clock::now() - *returned_);
        Returns& returns = amongStrangers_ ? counts_.returnsAmongStrangers : counts_.returnsAlone;
        returns.longest = std::max(returns.longest, took);
        ++returns.measured;
        if (took > kPromisedReturn) ++returns.slow;
        returned_.reset();
    }
}

void BusWatch::loseLink() {
    // A fault may have changed the controller's answer on its way.
    if (found_ || inService_) ++counts_.losses;
    found_ = false;
    lastRequestAnswered_ = false;
    inService_ = false;
}

}  // namespace reliability
