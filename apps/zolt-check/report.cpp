#include "apps/zolt-check/report.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

#include "apps/zolt-check/checks/port_setting.h"
#include "apps/zolt-check/findings/wording.h"
#include "core/config_schema.h"

namespace zolt_check {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kClean = 0;
constexpr int kWarnings = 1;
constexpr int kDoesNotStart = 2;

const char* nameOf(Severity severity) {
    return severity == Severity::kError ? "error" : "warning";
}

std::string pace(std::int32_t delay) {
    const std::optional<long> percent = percentOfDelay(delay);
    return pauseText(delay) + " per cycle" +
           (percent ? " (" + std::to_string(*percent) + " %)" : "");
}

Json percentJson(std::int32_t delay) {
    const std::optional<long> percent = percentOfDelay(delay);
    return percent ? Json(*percent) : Json(nullptr);
}

std::string settingLine(std::string label, const std::string& value) {
    constexpr std::size_t kColumn = 11;
    label.resize(std::max(label.size() + 1, kColumn), ' ');
    return label + value + "\n";
}

std::string portText(const INTERFACE_DESCRIPTOR& interface) {
    const std::uint16_t port = boundPort(interface.port);
    return port == 0 ? "a port that the system picks" : "port " + std::to_string(port);
}

std::string interfaceText(const INTERFACE_DESCRIPTOR& interface) {
    return portText(interface) + ", lines from clients end in " +
           shownSeparator(interface.inpSeparator) + ", lines to clients in " +
           shownSeparator(interface.outSeparator) + ", " + pace(interface.threadDelay);
}

std::string settingsText(const CONFIG_DESCRIPTOR& config) {
    const auto onOff = [](bool on) { return on ? "on" : "off"; };
    std::string text =
        settingLine("log file", config.debugLogFile.empty() ? "none" : config.debugLogFile) +
        settingLine("log level", std::to_string(config.logLevel)) +
        settingLine("speed", pace(config.threadDelay)) +
        settingLine("polling", onOff(config.initialPollState)) +
        settingLine("discovery", onOff(config.autoDiscover));
    for (const config_schema::Target& row : config_schema::targets()) {
        text += settingLine(row.name, interfaceText(config.*row.interface));
    }
    return text;
}

std::string findingLine(const std::string& path, const Finding& finding) {
    return path + ":" + std::to_string(finding.place.line) + ":" +
           std::to_string(finding.place.column) + ": " + nameOf(finding.severity) + ": " +
           finding.text + "\n";
}

std::string verdict(const std::string& path, const CheckedFile& result) {
    if (!result.starts()) {
        return path + ": zolt would not start\n";
    }
    const std::size_t warnings = result.findings.size();
    if (warnings == 0) {
        return path + ": clean\n";
    }
    return path + ": zolt would start, with " + std::to_string(warnings) +
           (warnings == 1 ? " warning\n" : " warnings\n");
}

Json interfaceJson(const INTERFACE_DESCRIPTOR& interface) {
    Json json;
    json["configured"] = !interface.name.empty();
    json["port"] = interface.port;
    const std::uint16_t port = boundPort(interface.port);
    json["listensOn"] = port == 0 ? Json(nullptr) : Json(port);
    json["inpSeparator"] = interface.inpSeparator;
    json["outSeparator"] = interface.outSeparator;
    json["pause"] = pauseOf(interface.threadDelay);
    json["percent"] = percentJson(interface.threadDelay);
    return json;
}

Json settingsJson(const CONFIG_DESCRIPTOR& config) {
    Json json;
    json["logFile"] = config.debugLogFile;
    json["logLevel"] = config.logLevel;
    json["pause"] = pauseOf(config.threadDelay);
    json["percent"] = percentJson(config.threadDelay);
    json["polling"] = config.initialPollState;
    json["discovery"] = config.autoDiscover;
    for (const config_schema::Target& row : config_schema::targets()) {
        json["interfaces"][row.name] = interfaceJson(config.*row.interface);
    }
    return json;
}

Json findingJson(const Finding& finding) {
    Json json;
    json["severity"] = nameOf(finding.severity);
    json["line"] = finding.place.line;
    json["column"] = finding.place.column;
    json["text"] = finding.text;
    return json;
}

std::string jsonReport(const std::string& path, const CheckedFile& result,
                       const ReportOptions& options) {
    constexpr int kIndent = 2;
    Json json;
    json["file"] = path;
    json["status"] = exitStatus(result, options.errorsOnly);
    if (!options.quiet) {
        json["settings"] = result.starts() ? settingsJson(result.config) : Json(nullptr);
    }
    json["findings"] = Json::array();
    for (const Finding& finding : result.findings) {
        json["findings"].push_back(findingJson(finding));
    }
    // One byte that is not UTF-8 must not prevent the whole report.
    return json.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

int exitStatus(const CheckedFile& result, bool errorsOnly) {
    if (!result.starts()) {
        return kDoesNotStart;
    }
    return result.findings.empty() || errorsOnly ? kClean : kWarnings;
}

std::string report(const std::string& path, const CheckedFile& result,
                   const ReportOptions& options) {
    if (options.json) {
        return jsonReport(path, result, options);
    }
    std::string text;
    if (!options.quiet && result.starts()) {
        text += settingsText(result.config);
    }
    for (const Finding& finding : result.findings) {
        text += findingLine(path, finding);
    }
    return options.quiet ? text : text + verdict(path, result);
}

}  // namespace zolt_check
