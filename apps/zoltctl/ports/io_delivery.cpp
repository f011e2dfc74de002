#include "apps/zoltctl/ports/io_delivery.h"

#include "apps/zoltctl/ports/opening.h"
#include "apps/zoltctl/ports/packet.h"

namespace ctl {

void deliverToIo(const Endpoint& endpoint, const std::string& line, const std::string& lineEnd,
                 Seconds timeout) {
    const std::string packet = packetOf(line, lineEnd);
    OpenPort port = openPort(endpoint, timeout);
    const Deadline until = Deadline::in(timeout);
    port.connection.send(packet, until);
    // The daemon closes when it reads the end, which stands behind the line.
    // Reports that come meanwhile are read: unread ones would turn the end into a
    // reset, which overtakes the line.
    port.connection.halfClose();
    std::string reports;
    for (;;) {
        reports.clear();
        switch (port.connection.receive(reports, until)) {
            case Connection::Wait::kBytes:
                break;
            case Connection::Wait::kEnd:
                if (port.connection.wasReset()) {
                    throw port.connection.cut("before the line was read");
                }
                return;
            case Connection::Wait::kTimeout:
                throw port.connection.timedOut("does not take the line");
        }
    }
}

}  // namespace ctl
