#include "bench/system/trials/conditions.h"

#include "bench/system/basics/failure.h"
#include "tests/support/wait.h"

namespace bench {

void awaitPolls(const Slave& slave) {
    if (!support::waitUntil([&] { return slave.polls()[0].count > 0; })) {
        throw Failure("no card is polled");
    }
}

void awaitQuiet(const Slave& slave) {
    // This is longer than any cycle.
    constexpr std::chrono::milliseconds kStill{50};
    const auto quiet = [&] { return Clock::now() - slave.allPolls().last > kStill; };
    if (!support::waitUntil(quiet)) throw Failure("polling does not end");
}

}  // namespace bench
