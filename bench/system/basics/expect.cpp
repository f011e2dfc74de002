#include "bench/system/basics/expect.h"

#include "bench/system/basics/failure.h"
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

}  // namespace bench
