#include "apps/zolt-sim/adapter/adapter.h"

#include <poll.h>

#include <array>
#include <optional>
#include <system_error>
#include <thread>

#include "apps/zolt-sim/adapter/device_link.h"
#include "apps/zolt-sim/adapter/frame_assembler.h"
#include "apps/zolt-sim/adapter/pause.h"
#include "apps/zolt-sim/adapter/pty_pair.h"
#include "apps/zolt-sim/error.h"
#include "lib/os/event.h"
#include "lib/text/hexadecimal.h"

namespace zolt_sim {
namespace {

/// After this silence an incomplete frame is dropped. Its host has gone, and its bytes
/// must not shift the frames that follow.
constexpr std::chrono::milliseconds kSilenceEndsFrame{100};

}  // namespace

/// The time from plugging in to unplugging, with the pseudo-terminal and the thread that
/// answers.
class Adapter::Session {
  public:
    Session(AdapterUser& user, unsigned baud, const std::string& linkPath)
        : user_(user), baud_(baud), thread_([this] { run(); }) {
        try {
            // The link comes last: a host that sees the name then gets answers.
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
        stop_.raise();
        thread_.join();
    }

    void run() {
        sharpenSleeps();
        std::array<pollfd, 3> events{pollfd{stop_.get(), POLLIN, 0},
                                     pollfd{pair_.wireDescriptor(), POLLIN, 0},
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

    /// False if the adapter has been unplugged meanwhile.
    bool serve() {
        std::array<std::uint8_t, 4096> buffer{};
        const std::size_t count = pair_.read(buffer);
        const Clock::time_point received = Clock::now();
        // The actions are read after the bytes. What a new host has written is then never
        // taken for the rest of the frame of the host before it.
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
            user_.onNote("incomplete request dropped: " + zolt_text::hexBytes(assembler_.drop()));
        }
    }

    bool answer(const Bytes& request, Clock::time_point received) {
        const WireOutput output = user_.onRequest(request);
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

    AdapterUser& user_;
    unsigned baud_;
    PtyPair pair_;
    zolt_os::Event stop_;
    FrameAssembler assembler_;
    std::optional<DeviceLink> link_;
    /// The last member, because the thread uses all others.
    std::thread thread_;
};

Adapter::Adapter(AdapterUser& user, unsigned baud) : user_(user), baud_(baud) {}

Adapter::~Adapter() = default;

void Adapter::plug(const std::string& linkPath) {
    try {
        session_ = std::make_unique<Session>(user_, baud_, linkPath);
    } catch (const std::system_error& error) {
        throw Error(error.what());
    }
}

void Adapter::unplug() {
    session_.reset();
}

}  // namespace zolt_sim
