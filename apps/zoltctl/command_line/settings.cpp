#include "apps/zoltctl/command_line/settings.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "apps/zoltctl/failure.h"
#include "apps/zoltctl/output/text.h"
#include "core/config_reader.h"

namespace ctl {
namespace {

constexpr unsigned kHighestPort = 65535;

struct PortRow {
    Port port;
    const char* name;
    const char* option;
    std::uint16_t number;
    INTERFACE_DESCRIPTOR CONFIG_DESCRIPTOR::*configured;
};

constexpr std::array kPorts{
    PortRow{Port::kCae, "console", "--cae-port", 4001, &CONFIG_DESCRIPTOR::cae},
    PortRow{Port::kIo, "IO", "--io-port", 4002, &CONFIG_DESCRIPTOR::io},
    PortRow{Port::kMon, "monitor", "--mon-port", 4003, &CONFIG_DESCRIPTOR::mon},
};

Failure usage(const std::string& text) {
    return {Status::kUsage, text};
}

std::uint16_t portOf(const std::string& text, const char* option) {
    const auto number = parseDecimal(text, kHighestPort);
    if (!number || *number == 0) {
        throw usage(quote(text) + " is no port: " + option + " takes a number from 1 to 65535");
    }
    return static_cast<std::uint16_t>(*number);
}

Seconds timeoutOf(const std::string& text) {
    constexpr double kLongest = 86400;
    const auto seconds = parsePositive(text, kLongest);
    if (!seconds) {
        throw usage(quote(text) + " is no time: --timeout takes seconds above 0 and up to 86400");
    }
    return Seconds(*seconds);
}

/// Nothing means that it has to be found out.
std::optional<std::string> lineEndOf(const std::string& text) {
    struct Row {
        const char* word;
        const char* end;
    };
    constexpr std::array kWords{Row{"crlf", "\r\n"}, Row{"lf", "\n"}, Row{"cr", "\r"}};
    if (text == "auto") {
        return std::nullopt;
    }
    for (const Row& row : kWords) {
        if (text == row.word) {
            return row.end;
        }
    }
    return withControls(text);
}

/// Why the file cannot be read; empty when it can.
std::string unreadable(const std::string& path) {
    return ::access(path.c_str(), R_OK) == 0 ? std::string()
                                             : std::generic_category().message(errno);
}

/// Nothing when there is none that has to be used.
std::optional<CONFIG_DESCRIPTOR> configuration(const GivenSettings& given,
                                               const std::string& defaultPath, std::string& note) {
    const std::string& path = given.config ? *given.config : defaultPath;
    if (!given.config && ::access(path.c_str(), F_OK) != 0) {
        return std::nullopt;
    }
    std::string reason = unreadable(path);
    std::optional<CONFIG_DESCRIPTOR> read;
    if (reason.empty()) {
        read = readConfigFile(path);
        reason = read->errorText == CONFIG_DESCRIPTOR::kNoError ? "" : read->errorText;
    }
    if (reason.empty()) {
        return read;
    }
    const std::string text = "cannot use the configuration " + path + ": " + reason;
    if (given.config) {
        throw Failure(Status::kLocalFile, text);
    }
    note = text + "; the ports 4001, 4002 and 4003 are assumed";
    return std::nullopt;
}

Endpoint endpointOf(const PortRow& row, const GivenSettings& given,
                    const std::optional<CONFIG_DESCRIPTOR>& config) {
    Endpoint endpoint;
    endpoint.port = row.port;
    endpoint.host = given.host.value_or("127.0.0.1");
    endpoint.number = row.number;
    if (config) {
        const INTERFACE_DESCRIPTOR& configured = (*config).*row.configured;
        endpoint.number.reset();
        if (configured.port > 0 && configured.port <= static_cast<int>(kHighestPort)) {
            endpoint.number = static_cast<std::uint16_t>(configured.port);
        }
        endpoint.lineEnd = configured.inpSeparator;
        endpoint.outSeparator = configured.outSeparator;
    }
    if (const auto& port = given.ports[static_cast<std::size_t>(row.port)]) {
        endpoint.number = portOf(*port, row.option);
    }
    if (given.lineEnd) {
        endpoint.lineEnd = lineEndOf(*given.lineEnd);
    }
    return endpoint;
}

}  // namespace

const char* nameOf(Port port) {
    return kPorts[static_cast<std::size_t>(port)].name;
}

std::string Endpoint::label() const {
    const bool manyColons = host.find(':') != std::string::npos;
    return std::string(nameOf(port)) + " " + (manyColons ? "[" + host + "]" : host) + ":" +
           std::to_string(number.value_or(0));
}

Settings makeSettings(const GivenSettings& given, const std::string& defaultConfiguration) {
    if (given.host && given.host->empty()) {
        throw usage("--host is empty");
    }
    Settings settings;
    if (given.timeout) {
        settings.timeout = timeoutOf(*given.timeout);
    }
    const auto config = configuration(given, defaultConfiguration, settings.note);
    for (const PortRow& row : kPorts) {
        settings.endpoints[static_cast<std::size_t>(row.port)] = endpointOf(row, given, config);
    }
    return settings;
}

}  // namespace ctl
