#include "lib/ports/endpoint.h"

namespace zolt_ports {

const char* nameOf(Port port) {
    switch (port) {
        case Port::kCae:
            return "console";
        case Port::kIo:
            return "IO";
        case Port::kMon:
            return "monitor";
    }
    return "";
}

std::string_view bannerOf(Port port) {
    switch (port) {
        case Port::kCae:
            return "ZOLT CAE interface is ready\r\n(Type HELP for help)\r\n>\r\n\r";
        case Port::kIo:
            return "ZOLT IO interface is ready\r\n\r";
        case Port::kMon:
            return "ZOLT MON interface is ready\r\n\r";
    }
    return "";
}

std::string Endpoint::label() const {
    const bool manyColons = host.find(':') != std::string::npos;
    return std::string(nameOf(port)) + " " + (manyColons ? "[" + host + "]" : host) + ":" +
           std::to_string(number.value_or(0));
}

}  // namespace zolt_ports
