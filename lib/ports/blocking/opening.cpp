#include "lib/ports/blocking/opening.h"

#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

#include "lib/ports/items.h"
#include "lib/ports/opening_plan.h"
#include "lib/text/printable.h"

namespace zolt_ports {

using zolt_os::Clock;
using zolt_os::Deadline;
using zolt_os::pauseFor;
using zolt_os::Seconds;

namespace {

PortError noDaemon(const Endpoint& endpoint, int error) {
    return {Reason::kUnreachable,
            "no daemon at " + endpoint.label() + ": " + std::generic_category().message(error)};
}

PortError held(const Endpoint& endpoint) {
    return {Reason::kHeld, endpoint.label() + ": no banner came; another client holds the port"};
}

/// The bytes that came are not, or not yet, a banner.
PortError noBanner(const Endpoint& endpoint, const BannerFinder& banner, bool ended) {
    if (ended && banner.begun()) {
        return {Reason::kCut, endpoint.label() + ": the connection ended in the banner"};
    }
    return notZolt(endpoint.label(),
                   "instead of its banner it sent " + zolt_text::quote(banner.before()));
}

/// Nothing if the daemon turned the connection away without a byte.
std::optional<OpenPort> awaitBanner(const Endpoint& endpoint, Connection connection,
                                    const Deadline& deadline) {
    BannerFinder banner(bannerOf(endpoint.port));
    for (;;) {
        std::string bytes;
        const Connection::Wait wait = connection.receive(bytes, deadline);
        if (wait == Connection::Wait::kBytes) {
            if (banner.feed(bytes)) {
                return OpenPort{std::move(connection), banner.before(), banner.after()};
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

/// Throws unless the plan says to try again.
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

OpenPort openPort(const Endpoint& endpoint, Seconds timeout, int interrupt) {
    if (!endpoint.number) {
        throw PortError(Reason::kNoPort,
                        std::string("no port number is known for ") + nameOf(endpoint.port));
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
            throw PortError(Reason::kInterrupted, "");
        }
    }
}

}  // namespace zolt_ports
