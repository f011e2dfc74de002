#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// A place in a file as editors count it: lines and characters from 1.
struct ConfigPlace {
    std::size_t line = 1;
    std::size_t column = 1;
};

struct ConfigAttribute {
    std::string name;
    /// As the reader sees it: decoded, up to the first 0 byte.
    std::string value;
    ConfigPlace place;
    /// Line ends or tabs were typed inside the quotation marks; XML makes blanks
    /// of them. Known only in files in UTF-8.
    bool controlsBecameBlanks = false;
};

struct ConfigElement {
    std::string name;
    ConfigPlace place;
    std::vector<ConfigAttribute> attributes;
    std::vector<ConfigElement> children;
    /// Where the first text directly inside begins.
    std::optional<ConfigPlace> text;
};

/// A configuration file as a tree with places, for explaining it. What it means
/// is for readConfigFile to say.
struct ConfigDocument {
    /// Why there is no tree; empty when there is one.
    std::string fault;
    ConfigPlace faultPlace;
    /// The outermost elements, and three levels below them: nothing deeper is
    /// ever read.
    std::vector<ConfigElement> elements;
};

/// Loads what readConfigFile loads. A path that is no regular file is a fault
/// and is not opened: a pipe would keep the caller waiting, and is no
/// configuration for the daemon either. Throws only when memory runs out.
ConfigDocument loadConfigDocument(const std::string& path);
