#include "core/config_schema.h"

#include <array>
#include <string>

#include "common/text.h"

namespace config_schema {
namespace {

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

/// "\r" and "\n" as typed in the file become the characters.
std::string separatorOf(std::string text) {
    replaceAll(text, "\\r", "\r");
    replaceAll(text, "\\n", "\n");
    return text;
}

std::int32_t numberOf(const char* value) {
    return static_cast<std::int32_t>(ATOL(value));
}

constexpr std::array kSettings{
    Setting{kDebuglog, kFile,
            [](CONFIG_DESCRIPTOR& config, const char* value) { config.debugLogFile = value; }},
    Setting{
        kDebuglog, kLoglevel,
        [](CONFIG_DESCRIPTOR& config, const char* value) { config.logLevel = numberOf(value); }},
    Setting{kSpeed, kPercent,
            [](CONFIG_DESCRIPTOR& config, const char* value) {
                config.threadDelay = threadDelayOfPercent(ATOL(value));
            }},
    Setting{kInitPollState, kAction,
            [](CONFIG_DESCRIPTOR& config, const char* value) {
                config.initialPollState = ATOB(value);
            }},
    Setting{
        kAutoDiscover, kAction,
        [](CONFIG_DESCRIPTOR& config, const char* value) { config.autoDiscover = ATOB(value); }},
};

constexpr std::array kEntryAttributes{
    EntryAttribute{kName,
                   [](INTERFACE_DESCRIPTOR& entry, const char* value) { entry.name = value; }},
    EntryAttribute{kInpSeparator,
                   [](INTERFACE_DESCRIPTOR& entry, const char* value) {
                       entry.inpSeparator = separatorOf(value);
                   }},
    EntryAttribute{kOutSeparator,
                   [](INTERFACE_DESCRIPTOR& entry, const char* value) {
                       entry.outSeparator = separatorOf(value);
                   }},
    EntryAttribute{kPort, [](INTERFACE_DESCRIPTOR& entry,
                             const char* value) { entry.port = numberOf(value); }},
};

constexpr std::array kTargets{
    Target{"CAE", &CONFIG_DESCRIPTOR::cae},
    Target{"IO", &CONFIG_DESCRIPTOR::io},
    Target{"MON", &CONFIG_DESCRIPTOR::mon},
};

}  // namespace

std::span<const Setting> settings() {
    return kSettings;
}

std::span<const EntryAttribute> entryAttributes() {
    return kEntryAttributes;
}

std::span<const Target> targets() {
    return kTargets;
}

}  // namespace config_schema
