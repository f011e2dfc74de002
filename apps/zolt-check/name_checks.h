// Names that the daemon does not know, what is given twice, and what stands where
// nothing is read.
#pragma once

#include <string>
#include <vector>

#include "apps/zolt-check/finding.h"

namespace check {

/// The children of the root, the attributes of one of them, the attributes of an
/// entry, and the interfaces, as the daemon's reader knows them.
std::vector<std::string> knownElements();
std::vector<std::string> knownAttributes(const std::string& element);
std::vector<std::string> knownEntryAttributes();
std::vector<std::string> knownInterfaces();

bool contains(const std::vector<std::string>& names, const std::string& name);

/// Reports the attributes of `element` that are not among `known` and those that
/// it has twice.
void checkAttributeNames(const ConfigElement& element, const std::vector<std::string>& known,
                         Findings& findings);

/// Reports text inside an element: none is ever read.
void checkNoText(const ConfigElement& element, Findings& findings);

/// Reports the children of an element that may have none.
void checkNoChildren(const ConfigElement& element, Findings& findings);

}  // namespace check
