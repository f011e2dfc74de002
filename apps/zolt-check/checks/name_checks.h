#pragma once

#include <string>
#include <vector>

#include "apps/zolt-check/document/config_document.h"
#include "apps/zolt-check/findings/finding.h"

namespace zolt_check {

/// The children of the root that the daemon reads.
std::vector<std::string> knownElements();
/// The attributes that the daemon reads of one of these children.
std::vector<std::string> knownAttributes(const std::string& element);
/// The attributes that the daemon reads of an entry of Interfaces.
std::vector<std::string> knownEntryAttributes();
/// The names of the daemon's interfaces.
std::vector<std::string> knownInterfaces();

bool contains(const std::vector<std::string>& names, const std::string& name);

/// Reports the attributes of `element` that are not in `known`, and those that the
/// element has twice.
void checkAttributeNames(const ConfigElement& element, const std::vector<std::string>& known,
                         Findings& findings);

/// Reports text inside an element: the daemon reads no text.
void checkNoText(const ConfigElement& element, Findings& findings);

/// Reports the children of an element that must not have any.
void checkNoChildren(const ConfigElement& element, Findings& findings);

}  // namespace zolt_check
