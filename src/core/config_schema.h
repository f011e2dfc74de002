#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/configuration.h"

/// What a configuration file may hold: the tables that the reader goes by. All
/// names are compared exactly.
namespace config_schema {

inline constexpr const char* kRoot = "ZOLTConfig";
/// The child of the root that holds one entry, an element of any name, per interface.
inline constexpr const char* kInterfaces = "Interfaces";
/// More entries than this in one Interfaces element are not read.
inline constexpr std::size_t kEntryLimit = 4;
/// A port below this one is the system's own and ends the reading.
inline constexpr std::int32_t kLowestPort = 1025;

inline constexpr const char* kDebuglog = "Debuglog";
inline constexpr const char* kFile = "File";
inline constexpr const char* kLoglevel = "Loglevel";
inline constexpr const char* kSpeed = "Speed";
inline constexpr const char* kPercent = "Percent";
inline constexpr const char* kInitPollState = "InitPollState";
inline constexpr const char* kAutoDiscover = "AutoDiscover";
inline constexpr const char* kAction = "Action";

inline constexpr const char* kName = "Name";
inline constexpr const char* kInpSeparator = "InpSeparator";
inline constexpr const char* kOutSeparator = "OutSeparator";
inline constexpr const char* kPort = "Port";

/// One attribute of one child of the root, and what its value does.
struct Setting {
    const char* element;
    const char* attribute;
    void (*apply)(CONFIG_DESCRIPTOR& config, const char* value);
};
std::span<const Setting> settings();

/// One attribute of an entry, and what its value does.
struct EntryAttribute {
    const char* name;
    void (*apply)(INTERFACE_DESCRIPTOR& entry, const char* value);
};
std::span<const EntryAttribute> entryAttributes();

/// The Name of an entry, and the interface that it sets.
struct Target {
    const char* name;
    INTERFACE_DESCRIPTOR CONFIG_DESCRIPTOR::*interface;
};
/// The targets, in the order in which the daemon opens them.
std::span<const Target> targets();

}  // namespace config_schema
