#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/zolt-check/document/config_place.h"

namespace zolt_check {

/// An attribute with its place.
struct ConfigAttribute {
    std::string name;
    /// The value as the daemon's reader gets it: decoded, up to the first 0 byte.
    std::string value;
    ConfigPlace place;
    /// True if line ends or tabs were typed inside the quotation marks, which XML turns
    /// into blanks. Only known for files in UTF-8.
    bool controlsBecameBlanks = false;
};

/// An element with its place and what is inside.
struct ConfigElement {
    std::string name;
    ConfigPlace place;
    std::vector<ConfigAttribute> attributes;
    std::vector<ConfigElement> children;
    /// The start of the first text that is directly inside the element.
    std::optional<ConfigPlace> text;
};

/// A configuration file as a tree in which everything has its place, so that findings
/// can refer to it. readConfigFile() decides what the file means.
struct ConfigDocument {
    /// The reason why there is no tree; empty if there is one.
    std::string fault;
    ConfigPlace faultPlace;
    /// The outermost elements and three levels below them: the daemon reads nothing
    /// deeper.
    std::vector<ConfigElement> elements;
};

/// Loads the file that readConfigFile() loads. A path that is not a regular file is a
/// fault and is not opened: a pipe would block the caller, and the daemon reads no pipe
/// either. Throws only std::bad_alloc.
ConfigDocument loadConfigDocument(const std::string& path);

}  // namespace zolt_check
