#include "bench/system/expect.h"

#include "bench/system/failure.h"
#include "tests/support/text/text_escape.h"

namespace bench {

Time expect(support::TcpClient& client, const std::string& bytes) {
    std::string come;
    while (client.waitReadable(kLost)) {
        come += client.receive();
        const Time now = Clock::now();
        if (come == bytes) return now;
        if (!bytes.starts_with(come) || client.closedByPeer()) break;
    }
    throw Failure("\"" + support::escapeBytes(come) + "\" came in place of \"" +
                  support::escapeBytes(bytes) + "\"");
}

double microsecondsBetween(Time from, Time to) {
    return std::chrono::duration<double, std::micro>(to - from).count();
}

double secondsBetween(Time from, Time to) {
    return std::chrono::duration<double>(to - from).count();
}

}  // namespace bench
