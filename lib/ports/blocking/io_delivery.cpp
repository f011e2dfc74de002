#include "lib/ports/blocking/io_delivery.h"

#include "lib/ports/blocking/opening.h"
#include "lib/ports/packet.h"

namespace zolt_ports {

void deliverToIo(const Endpoint& endpoint, const std::string& line, const std::string& lineEnd,
                 zolt_os::Seconds timeout) {
    const std::string packet = packetOf(line, lineEnd);
    OpenPort port = openPort(endpoint, timeout);
    const zolt_os::Deadline until = zolt_os::Deadline::in(timeout);
    port.connection.send(packet, until);
    // The daemon closes when it reads the end of the connection, which comes after the
    // line. Reports that come meanwhile are read: unread ones would turn the end into a
    // reset, and a reset overtakes the line.
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

}  // namespace zolt_ports
