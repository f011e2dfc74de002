#include "core/config_reader.h"

#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <pugixml.hpp>

#include "common/text.h"

namespace {

/// Ports below are the system's own.
constexpr std::int32_t kLowestPort = 1025;

constexpr std::size_t kErrorTextLimit = 99;

/// More entries than this in one Interfaces element are not read.
constexpr std::size_t kInterfaceEntries = 4;

using InterfaceEntries = std::array<INTERFACE_DESCRIPTOR, kInterfaceEntries>;

/// What the handlers below fill; `done` ends the reading.
struct Reading {
    CONFIG_DESCRIPTOR config;
    InterfaceEntries entries;
    bool done = false;
};

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

struct AttributeRow {
    const char* element;
    const char* attribute;
    void (*apply)(CONFIG_DESCRIPTOR& config, const char* value);
};

constexpr std::array kAttributes{
    AttributeRow{"Debuglog", "File",
                 [](CONFIG_DESCRIPTOR& config, const char* value) { config.debugLogFile = value; }},
    AttributeRow{
        "Debuglog", "Loglevel",
        [](CONFIG_DESCRIPTOR& config, const char* value) { config.logLevel = numberOf(value); }},
    AttributeRow{"Speed", "Percent",
                 [](CONFIG_DESCRIPTOR& config, const char* value) {
                     config.threadDelay = threadDelayOfPercent(ATOL(value));
                 }},
    AttributeRow{"InitPollState", "Action",
                 [](CONFIG_DESCRIPTOR& config, const char* value) {
                     config.initialPollState = ATOB(value);
                 }},
    AttributeRow{
        "AutoDiscover", "Action",
        [](CONFIG_DESCRIPTOR& config, const char* value) { config.autoDiscover = ATOB(value); }},
};

void readAttributes(const pugi::xml_node& element, CONFIG_DESCRIPTOR& config) {
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        for (const AttributeRow& row : kAttributes) {
            if (std::string(element.name()) == row.element &&
                std::string(attribute.name()) == row.attribute) {
                row.apply(config, attribute.value());
            }
        }
    }
}

struct TargetRow {
    const char* name;
    INTERFACE_DESCRIPTOR CONFIG_DESCRIPTOR::*target;
};

constexpr std::array kTargets{
    TargetRow{"IO", &CONFIG_DESCRIPTOR::io},
    TargetRow{"CAE", &CONFIG_DESCRIPTOR::cae},
    TargetRow{"MON", &CONFIG_DESCRIPTOR::mon},
};

/// False when the port is one of the system's own.
bool readInterface(const pugi::xml_node& element, INTERFACE_DESCRIPTOR& entry) {
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        const std::string key = attribute.name();
        if (key == "Name") {
            entry.name = attribute.value();
        } else if (key == "InpSeparator") {
            entry.inpSeparator = separatorOf(attribute.value());
        } else if (key == "OutSeparator") {
            entry.outSeparator = separatorOf(attribute.value());
        } else if (key == "Port") {
            entry.port = numberOf(attribute.value());
            if (entry.port < kLowestPort) {
                return false;
            }
        }
    }
    return true;
}

void readInterfaces(const pugi::xml_node& element, Reading& reading) {
    std::size_t next = 0;
    for (const pugi::xml_node& child : element.children()) {
        if (child.type() != pugi::node_element) {
            continue;
        }
        if (next == kInterfaceEntries) {
            return;
        }
        INTERFACE_DESCRIPTOR& entry = reading.entries[next++];
        // As it stands now: a speed set further down is not for the interfaces.
        entry.threadDelay = reading.config.threadDelay;
        if (!readInterface(child, entry)) {
            reading.config.errorText = (entry.name + " interface port number is less than 1025")
                                           .substr(0, kErrorTextLimit);
            reading.done = true;
            return;
        }
        for (const TargetRow& row : kTargets) {
            if (entry.name == row.name) {
                reading.config.*row.target = entry;
            }
        }
    }
}

void reportUnloadable() {
    setlogmask(LOG_UPTO(LOG_NOTICE));
    syslog(
        LOG_NOTICE,
        "Unable to start by user %d, because unable to load config, or unable to parse XML file!",
        static_cast<int>(getuid()));
    closelog();
}

}  // namespace

CONFIG_DESCRIPTOR readConfigFile(const std::string& path) {
    Reading reading;
    pugi::xml_document document;
    if (!document.load_file(path.c_str())) {
        reading.config.errorText = "Unable to load config, or unable to parse XML file!";
        reportUnloadable();
        return reading.config;
    }
    for (const pugi::xml_node& element : document.child("ZOLTConfig").children()) {
        if (std::string(element.name()) == "Interfaces") {
            readInterfaces(element, reading);
        } else {
            readAttributes(element, reading.config);
        }
        if (reading.done) {
            break;
        }
    }
    return reading.config;
}
