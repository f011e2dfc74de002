#include <algorithm>
#include <array>

#include "bus/serial_interface.h"

namespace {

/// The limits count read attempts and not time. There is no pause between attempts, so an
/// answer is picked up within one read of its arrival. On an idle line the shorter limit
/// is some tens of milliseconds.
constexpr int kAttempts = 150000;
/// The controller takes longer over the hardware check and discovery.
constexpr int kLongAttempts = 300000;

// These are the answers that the host makes itself. Static lists in their place would be
// destroyed at exit while the worker still runs.
ByteList nothingSent() {
    return {'L', 'C', 'E'};
}
ByteList noAnswer() {
    return {'T', 'M', 'E'};
}

int attemptLimitOf(const ByteList& request) {
    const char first = request.front();
    return first == wire::kHardwareCheck || first == wire::kDiscovery ? kLongAttempts : kAttempts;
}

}  // namespace

ByteList SERIAL_INTERFACE::Comm2HW(ByteList request) {
    std::array<char, wire::kReadSize> stale{};
    port_.read(stale.data(), stale.size());
    if (request.empty()) {
        return nothingSent();
    }
    sendFrame(request);
    return awaitAnswer(attemptLimitOf(request));
}

void SERIAL_INTERFACE::sendFrame(const ByteList& request) {
    std::array<char, 1 + wire::kMaxRequest> frame{};
    const std::size_t count = std::min(request.size(), wire::kMaxRequest);
    frame[0] = static_cast<char>(count);
    std::copy_n(request.begin(), count, frame.begin() + 1);

    waitingForAnswer_ = true;
    receivedCount_ = 0;
    if (port_.write(frame.data(), 1 + count) < 0) {
        // The wait for the answer still follows, and its time-out closes the port.
        logger_.error("unable to  write to ", devicePath_);
    }
}

ByteList SERIAL_INTERFACE::awaitAnswer(int attemptLimit) {
    std::array<char, wire::kReadSize> chunk{};
    int attempts = 0;
    while (waitingForAnswer_ && attempts < attemptLimit) {
        const ssize_t count = port_.read(chunk.data(), chunk.size());
        if (count > 0) {
            receive(std::span(chunk).first(static_cast<std::size_t>(count)));
        }
        ++attempts;
    }
    // An answer that completes on the very last attempt is a time-out, too.
    if (attempts >= attemptLimit) {
        return noAnswer();
    }
    const int payload = std::max(0, static_cast<int>(receiveBuffer_[0]));
    return {receiveBuffer_.begin() + 1, receiveBuffer_.begin() + 1 + payload};
}

void SERIAL_INTERFACE::receive(std::span<const char> bytes) {
    const std::size_t kept = std::min(receivedCount_, receiveBuffer_.size());
    std::copy_n(bytes.begin(), std::min(bytes.size(), receiveBuffer_.size() - kept),
                receiveBuffer_.begin() + static_cast<std::ptrdiff_t>(kept));
    receivedCount_ += bytes.size();
    // The length byte is signed on purpose: 0x80 or more is complete at once.
    if (static_cast<int>(receivedCount_) > receiveBuffer_[0]) {
        waitingForAnswer_ = false;
    }
}
