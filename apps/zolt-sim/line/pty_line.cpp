#include "apps/zolt-sim/line/pty_line.h"

#include <poll.h>

#include <array>
#include <optional>
#include <thread>

#include "apps/zolt-sim/line/descriptor.h"
#include "apps/zolt-sim/line/device_link.h"
#include "apps/zolt-sim/line/frame_assembler.h"
#include "apps/zolt-sim/line/pause.h"
#include "apps/zolt-sim/line/pty_pair.h"

namespace sim {
namespace {

// A frame torn by a host that went away must not shift all frames after it.
constexpr std::chrono::milliseconds kSilenceEndsFrame{100};

}  // namespace

// One plugging in: from the pseudo-terminal's opening to its closing.
class PtyLine::Session {
  public:
    Session(LineUser& user, unsigned baud, const std::string& linkPath)
        : user_(user), baud_(baud), thread_([this] { run(); }) {
        try {
            // Last, so that a host which sees the name finds somebody answering.
            link_.emplace(linkPath, pair_.hostPath());
        } catch (...) {
            stopThread();
            throw;
        }
    }

    ~Session() {
        link_.reset();
        stopThread();
    }

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

  private:
    void stopThread() {
        stop_.wake();
        thread_.join();
    }

    void run() {
        sharpenSleeps();
        std::array<pollfd, 3> events{pollfd{stop_.get(), POLLIN, 0},
                                     pollfd{pair_.lineDescriptor(), POLLIN, 0},
                                     pollfd{pair_.watchDescriptor(), POLLIN, 0}};
        for (;;) {
            const int timeout =
                assembler_.incomplete() ? static_cast<int>(kSilenceEndsFrame.count()) : -1;
            const int ready = ::poll(events.data(), events.size(), timeout);
            if (events[0].revents != 0) {
                return;
            }
            if (ready == 0) {
                dropIncomplete();
            } else if (ready > 0 && !serve()) {
                return;
            }
        }
    }

    // False when the line has been unplugged meanwhile.
    bool serve() {
        std::array<std::uint8_t, 4096> buffer{};
        const std::size_t count = pair_.read(buffer);
        const Clock::time_point received = Clock::now();
        // Read after the bytes: whatever a host that came anew has written is
        // then never taken for the rest of its predecessor's frame.
        noteHost(pair_.takeHostActions());
        assembler_.feed({buffer.data(), count});
        while (const std::optional<Bytes> request = assembler_.next()) {
            if (!answer(*request, received)) {
                return false;
            }
        }
        return true;
    }

    void noteHost(const PtyPair::HostActions& actions) {
        if (actions.closed) {
            user_.onNote("host closed");
            pair_.discardUnread();
        }
        if (actions.opened) {
            user_.onNote("host opened");
        }
        if (actions.closed || actions.opened) {
            dropIncomplete();
        }
    }

    void dropIncomplete() {
        if (assembler_.incomplete()) {
            user_.onNote("incomplete request dropped: " + hexBytes(assembler_.drop()));
        }
    }

    bool answer(const Bytes& request, Clock::time_point received) {
        const LineOutput output = user_.onRequest(request);
        if (output.bytes.empty()) {
            return true;
        }
        const std::size_t wireBytes = 1 + request.size() + output.bytes.size();
        const Clock::time_point due = received + wireTime(wireBytes, baud_) + output.delay;
        if (!holdUntil(due, stop_.get())) {
            return false;
        }
        if (pair_.write(output.bytes)) {
            user_.onSent(request, output);
        } else {
            user_.onNote("answer lost: the host does not read");
        }
        return true;
    }

    LineUser& user_;
    unsigned baud_;
    PtyPair pair_;
    StopEvent stop_;
    FrameAssembler assembler_;
    std::optional<DeviceLink> link_;
    std::thread thread_;  // last: runs on all the others
};

PtyLine::PtyLine(LineUser& user, unsigned baud) : user_(user), baud_(baud) {}

PtyLine::~PtyLine() = default;

void PtyLine::plug(const std::string& linkPath) {
    session_ = std::make_unique<Session>(user_, baud_, linkPath);
}

void PtyLine::unplug() {
    session_.reset();
}

}  // namespace sim
