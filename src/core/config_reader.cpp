#include "core/config_reader.h"

#include <syslog.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <pugixml.hpp>

#include "core/config_schema.h"

namespace {

constexpr std::size_t kErrorTextLimit = 99;

using InterfaceEntries = std::array<INTERFACE_DESCRIPTOR, config_schema::kEntryLimit>;

/// What the functions below fill; `done` ends the reading.
struct Reading {
    CONFIG_DESCRIPTOR config;
    InterfaceEntries entries;
    bool done = false;
};

void readAttributes(const pugi::xml_node& element, CONFIG_DESCRIPTOR& config) {
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        for (const config_schema::Setting& row : config_schema::settings()) {
            if (std::string(element.name()) == row.element &&
                std::string(attribute.name()) == row.attribute) {
                row.apply(config, attribute.value());
            }
        }
    }
}

/// False when the port is one of the system's own.
bool readInterface(const pugi::xml_node& element, INTERFACE_DESCRIPTOR& entry) {
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        const std::string key = attribute.name();
        for (const config_schema::EntryAttribute& row : config_schema::entryAttributes()) {
            if (key == row.name) {
                row.apply(entry, attribute.value());
            }
        }
        if (key == config_schema::kPort && entry.port < config_schema::kLowestPort) {
            return false;
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
        if (next == reading.entries.size()) {
            return;
        }
        INTERFACE_DESCRIPTOR& entry = reading.entries[next++];
        // The entry takes the delay that has been read so far: a speed further down in the
        // file does not apply to it.
        entry.threadDelay = reading.config.threadDelay;
        if (!readInterface(child, entry)) {
            reading.config.errorText = (entry.name + " interface port number is less than 1025")
                                           .substr(0, kErrorTextLimit);
            reading.done = true;
            return;
        }
        for (const config_schema::Target& row : config_schema::targets()) {
            if (entry.name == row.name) {
                reading.config.*row.interface = entry;
            }
        }
    }
}

/// A directory opens like a file, and claims a size that no memory holds.
bool isDirectory(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored);
}

}  // namespace

CONFIG_DESCRIPTOR readConfigFile(const std::string& path) {
    Reading reading;
    pugi::xml_document document;
    if (isDirectory(path) || !document.load_file(path.c_str())) {
        reading.config.errorText = kUnloadable;
        return reading.config;
    }
    for (const pugi::xml_node& element : document.child(config_schema::kRoot).children()) {
        if (std::string(element.name()) == config_schema::kInterfaces) {
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

void reportUnloadable() {
    setlogmask(LOG_UPTO(LOG_NOTICE));
    syslog(
        LOG_NOTICE,
        "Unable to start by user %d, because unable to load config, or unable to parse XML file!",
        static_cast<int>(getuid()));
    closelog();
}
