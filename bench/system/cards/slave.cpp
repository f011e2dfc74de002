#include "bench/system/cards/slave.h"

#include <poll.h>

#include <algorithm>
#include <utility>

#include "apps/zolt-sim/cards/request.h"

namespace bench {
namespace {

// More outputs than there are between two calls of forgetOutputs, so that the slave's thread
// does not allocate.
constexpr std::size_t kMostOutputs = 100000;

// An answer that comes this soon after its request is in time for a host that waits some
// tens of milliseconds.
constexpr std::chrono::milliseconds kInTime{10};

}  // namespace

Slave::Slave(const std::string& busText, const Placement& placement)
    : model_(zolt_sim::parseBusText(busText, "bus")),
      link_(kAdapter, pair_.hostPath()),
      thread_([this, placement] {
          placement.asSlave();
          run();
      }) {
    const std::lock_guard guard(lock_);
    outputs_.reserve(kMostOutputs);
}

Slave::~Slave() {
    stop_.raise();
    thread_.join();
}

void Slave::changeInput(Time due, std::uint8_t card, std::uint8_t value) {
    const std::lock_guard guard(lock_);
    change_ = Change{due, card, value};
}

std::optional<Slave::Output> Slave::awaitOutput(std::size_t number,
                                                std::chrono::milliseconds patience) {
    std::unique_lock guard(lock_);
    if (!answered_.wait_for(guard, patience, [&] { return outputs_.size() > number; })) {
        return std::nullopt;
    }
    return outputs_[number];
}

std::vector<Slave::Output> Slave::outputs() const {
    const std::lock_guard guard(lock_);
    return outputs_;
}

void Slave::forgetOutputs() {
    const std::lock_guard guard(lock_);
    outputs_.clear();
}

std::array<Slave::Polls, zolt_sim::wire::kAddressCount> Slave::polls() const {
    const std::lock_guard guard(lock_);
    return polls_;
}

Slave::Polls Slave::allPolls() const {
    const std::lock_guard guard(lock_);
    Polls all;
    for (const Polls& card : polls_) {
        all.count += card.count;
        all.held += card.held;
        all.last = std::max(all.last, card.last);
    }
    return all;
}

std::optional<Time> Slave::discovered() const {
    const std::lock_guard guard(lock_);
    return discovered_;
}

std::size_t Slave::missedAnswers() const {
    const std::lock_guard guard(lock_);
    return missedAnswers_;
}

Histogram Slave::lateness() const {
    const std::lock_guard guard(lock_);
    return lateness_;
}

void Slave::run() {
    zolt_sim::sharpenSleeps();
    std::array<pollfd, 3> events{pollfd{stop_.get(), POLLIN, 0},
                                 pollfd{pair_.wireDescriptor(), POLLIN, 0},
                                 pollfd{pair_.watchDescriptor(), POLLIN, 0}};
    for (;;) {
        const int ready = ::poll(events.data(), events.size(), -1);
        if (events[0].revents != 0) return;
        if (ready > 0) serve();
    }
}

void Slave::serve() {
    std::array<std::uint8_t, 4096> buffer{};
    const std::size_t count = pair_.read(buffer);
    const Time received = Clock::now();
    const auto host = pair_.takeHostActions();
    if (host.closed) {
        pair_.discardUnread();
        noteClosed(count > 0);
    }
    if (host.closed || host.opened) assembler_.drop();
    assembler_.feed({buffer.data(), count});
    while (const std::optional<zolt_sim::Bytes> request = assembler_.next()) {
        answer(*request, received);
    }
}

void Slave::answer(const zolt_sim::Bytes& request, Time received) {
    const unsigned baud = baud_;
    // Requests that come together go over the wire one after the other.
    const Time begin = std::max(received, wireFree_);
    const Time atCard = begin + zolt_sim::wireTime(1 + request.size(), baud);
    const zolt_sim::Bytes frame = frameFor(request, atCard);
    const Time due = atCard + zolt_sim::wireTime(frame.size(), baud);
    wireFree_ = due;
    if (!zolt_sim::holdUntil(due, stop_.get())) return;
    // A host that does not read loses the answer, as on a line.
    static_cast<void>(pair_.write(frame));
    const Time now = Clock::now();
    {
        const std::lock_guard guard(lock_);
        note(request, {0, 0, received, atCard, now});
        answeredInTime_ = now - received < kInTime;
        if (baud > 0) lateness_.add(microseconds(now - due));
    }
    answered_.notify_all();
}

void Slave::noteClosed(bool unanswered) {
    const std::lock_guard guard(lock_);
    if (answeredInTime_ && !unanswered) ++missedAnswers_;
    answeredInTime_ = false;
}

zolt_sim::Bytes Slave::frameFor(const zolt_sim::Bytes& request, Time atCard) {
    const std::lock_guard guard(lock_);
    if (change_ && change_->due <= atCard) {
        model_.setInput(change_->card, 0, change_->value);
        change_.reset();
    }
    zolt_sim::Bytes frame = model_.answer(request).answer.value_or(zolt_sim::Bytes{});
    if (!frame.empty()) frame.insert(frame.begin(), static_cast<std::uint8_t>(frame.size()));
    return frame;
}

void Slave::note(const zolt_sim::Bytes& request, Output times) {
    constexpr std::size_t kFirstValue = 3;
    switch (zolt_sim::requestKind(request)) {
        case zolt_sim::RequestKind::kPoll:
            if (const auto card = zolt_sim::namedCard(request); card && *card < polls_.size()) {
                ++polls_[*card].count;
                polls_[*card].last = times.answered;
                polls_[*card].held += times.answered - times.atPort;
            }
            break;
        case zolt_sim::RequestKind::kOutput:
            if (request.size() > kFirstValue && outputs_.size() < kMostOutputs) {
                times.card = request[1];
                times.value = request[kFirstValue];
                outputs_.push_back(times);
            }
            break;
        case zolt_sim::RequestKind::kDiscovery:
            discovered_ = times.answered;
            break;
        default:
            break;
    }
}

}  // namespace bench
