#include "lib/ports/port_error.h"

namespace zolt_ports {

PortError notZolt(const std::string& subject, const std::string& evidence) {
    return {Reason::kNotZolt, subject + " does not look like zolt: " + evidence};
}

}  // namespace zolt_ports
