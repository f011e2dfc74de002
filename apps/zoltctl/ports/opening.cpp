#include "apps/zoltctl/ports/opening.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/text.h"
#include "apps/zoltctl/ports/items.h"

namespace ctl {
namespace {

constexpr Seconds kRetryPause{0.1};

/// By Port. Each is one item, so a carriage return follows.
constexpr std::array kBanners{
    "ZOLT CAE interface is ready\r\n(Type HELP for help)\r\n>\r\n\r",
    "ZOLT IO interface is ready\r\n\r",
    "ZOLT MON interface is ready\r\n\r",
};

Failure noDaemon(const Endpoint& endpoint, int error) {
    return {Status::kNoDaemon,
            "no daemon at " + endpoint.label() + ": " + std::generic_category().message(error)};
}

Failure held(const Endpoint& endpoint) {
    return {Status::kHeld, endpoint.label() + ": no banner came; another client holds the port"};
}

/// The bytes that came are not, or not yet, a banner.
Failure noBanner(const Endpoint& endpoint, const BannerFinder& banner, bool ended) {
    if (ended && banner.begun()) {
        return {Status::kCut, endpoint.label() + ": the connection ended in the banner"};
    }
    return {Status::kNotZolt, endpoint.label() +
                                  " is none of zolt's: instead of its banner it sent " +
                                  quote(banner.before())};
}

/// Nothing when the daemon turned the connection away without a byte.
std::optional<OpenPort> awaitBanner(const Endpoint& endpoint, Connection connection,
                                    const Deadline& deadline) {
    BannerFinder banner(kBanners[static_cast<std::size_t>(endpoint.port)]);
    for (;;) {
        std::string bytes;
        const Connection::Wait wait = connection.receive(bytes, deadline);
        if (wait == Connection::Wait::kBytes) {
            if (banner.feed(bytes)) {
                return OpenPort{std::move(connection), banner.before(), banner.behind()};
            }
            continue;
        }
        const bool ended = wait == Connection::Wait::kEnd;
        if (!banner.before().empty()) {
            throw noBanner(endpoint, banner, ended);
        }
        if (!ended) {
            throw held(endpoint);
        }
        return std::nullopt;
    }
}

void heed(OpeningPlan::Next next, const Endpoint& endpoint) {
    switch (next) {
        case OpeningPlan::Next::kRetry:
            return;
        case OpeningPlan::Next::kNoDaemon:
            throw noDaemon(endpoint, ECONNREFUSED);
        case OpeningPlan::Next::kHeld:
            throw held(endpoint);
    }
}

}  // namespace

Clock::time_point OpeningPlan::after(Clock::time_point now, Seconds time) const {
    return now + std::chrono::duration_cast<Clock::duration>(time);
}

OpeningPlan::Next OpeningPlan::refused(Clock::time_point now) {
    if (!refusedEnd_) {
        refusedEnd_ = after(now, std::min(kRefusedWindow, timeout_));
    }
    if (bannerEnd_ && now >= *bannerEnd_) {
        return Next::kHeld;
    }
    return now < *refusedEnd_ ? Next::kRetry : Next::kNoDaemon;
}

OpeningPlan::Next OpeningPlan::turnedAway(Clock::time_point now) const {
    return bannerEnd_ && now >= *bannerEnd_ ? Next::kHeld : Next::kRetry;
}

void OpeningPlan::connected(Clock::time_point now) {
    refusedEnd_.reset();
    // Kept through all that follows, so that being turned away again and again
    // comes to an end.
    if (!bannerEnd_) {
        bannerEnd_ = after(now, timeout_);
    }
}

Clock::time_point OpeningPlan::end(Clock::time_point now) const {
    return bannerEnd_.value_or(after(now, timeout_));
}

OpenPort openPort(const Endpoint& endpoint, Seconds timeout, int interrupt) {
    if (!endpoint.number) {
        throw Failure(Status::kLocalFile, std::string("the configuration names no port for ") +
                                              nameOf(endpoint.port) + ": give it as an option");
    }
    const std::vector<Address> addresses =
        resolve(endpoint.host, *endpoint.number, Deadline::in(timeout, interrupt));
    OpeningPlan plan(timeout);
    for (;;) {
        const Deadline connecting(plan.end(Clock::now()), interrupt);
        ConnectResult result = connectTo(addresses, connecting);
        if (result.socket.valid()) {
            plan.connected(Clock::now());
            auto port =
                awaitBanner(endpoint, Connection(std::move(result.socket), endpoint.label()),
                            Deadline(plan.end(Clock::now()), interrupt));
            if (port) {
                return std::move(*port);
            }
            heed(plan.turnedAway(Clock::now()), endpoint);
        } else if (result.queueFull) {
            throw held(endpoint);
        } else if (result.refused) {
            heed(plan.refused(Clock::now()), endpoint);
        } else {
            throw noDaemon(endpoint, result.error);
        }
        const Deadline pause(plan.end(Clock::now()), interrupt);
        if (!pauseFor(kRetryPause, pause) && Clock::now() < pause.end()) {
            throw Failure(Status::kInterrupted, "");
        }
    }
}

}  // namespace ctl
