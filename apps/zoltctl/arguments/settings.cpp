#include "apps/zoltctl/arguments/settings.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "apps/zoltctl/failure.h"
#include "core/config_reader.h"
#include "lib/text/decimal.h"
#include "lib/text/printable.h"

namespace zoltctl {

using zolt_os::Seconds;
using zolt_ports::Endpoint;
using zolt_ports::Port;
using zolt_text::quote;

namespace {

constexpr unsigned kHighestPort = 65535;

struct PortRow {
    Port port;
    const char* option;
    std::optional<std::string> GivenSettings::*given;
    std::uint16_t number;  ///< the default
    INTERFACE_DESCRIPTOR CONFIG_DESCRIPTOR::*configured;
};

constexpr std::array kPorts{
    PortRow{Port::kCae, "--cae-port", &GivenSettings::caePort, 4001, &CONFIG_DESCRIPTOR::cae},
    PortRow{Port::kIo, "--io-port", &GivenSettings::ioPort, 4002, &CONFIG_DESCRIPTOR::io},
    PortRow{Port::kMon, "--mon-port", &GivenSettings::monPort, 4003, &CONFIG_DESCRIPTOR::mon},
};

Failure usage(const std::string& text) {
    return {Status::kUsage, text};
}

std::uint16_t portOf(const std::string& text, const char* option) {
    const auto number = zolt_text::parseDecimal(text, kHighestPort);
    if (!number || *number == 0) {
        throw usage(std::string(option) + " takes a number from 1 to 65535, not " + quote(text));
    }
    return static_cast<std::uint16_t>(*number);
}

Seconds timeoutOf(const std::string& text) {
    constexpr double kLongest = 86400;
    const auto seconds = zolt_text::parsePositive(text, kLongest);
    if (!seconds) {
        throw usage("--timeout takes seconds above 0 and up to 86400, not " + quote(text));
    }
    return Seconds(*seconds);
}

/// The characters that a text writes, with the two-character sequences \r and \n for
/// carriage return and line feed, as in the daemon's configuration.
std::string withControls(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view pair = text.substr(i, 2);
        if (pair == "\\r" || pair == "\\n") {
            result += pair == "\\r" ? '\r' : '\n';
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

/// The line end that --line-end gives; nothing if it has to be found out.
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

/// Why the file cannot be read; empty if it can be read.
std::string unreadable(const std::string& path) {
    return ::access(path.c_str(), R_OK) == 0 ? std::string()
                                             : std::generic_category().message(errno);
}

/// The daemon's configuration; nothing if there is none to use.
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
    if (const auto& port = given.*row.given) {
        endpoint.number = portOf(*port, row.option);
    }
    if (given.lineEnd) {
        endpoint.lineEnd = lineEndOf(*given.lineEnd);
    }
    return endpoint;
}

}  // namespace

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

}  // namespace zoltctl
