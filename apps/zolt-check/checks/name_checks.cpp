#include "apps/zolt-check/checks/name_checks.h"

#include <algorithm>

#include "apps/zolt-check/findings/spelling.h"
#include "core/config_schema.h"
#include "lib/text/printable.h"

namespace zolt_check {

std::vector<std::string> knownElements() {
    std::vector<std::string> names{config_schema::kInterfaces};
    for (const config_schema::Setting& row : config_schema::settings()) {
        if (!contains(names, row.element)) {
            names.emplace_back(row.element);
        }
    }
    return names;
}

std::vector<std::string> knownAttributes(const std::string& element) {
    std::vector<std::string> names;
    for (const config_schema::Setting& row : config_schema::settings()) {
        if (row.element == element) {
            names.emplace_back(row.attribute);
        }
    }
    return names;
}

std::vector<std::string> knownEntryAttributes() {
    std::vector<std::string> names;
    for (const config_schema::EntryAttribute& row : config_schema::entryAttributes()) {
        names.emplace_back(row.name);
    }
    return names;
}

std::vector<std::string> knownInterfaces() {
    std::vector<std::string> names;
    for (const config_schema::Target& row : config_schema::targets()) {
        names.emplace_back(row.name);
    }
    return names;
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

void checkAttributeNames(const ConfigElement& element, const std::vector<std::string>& known,
                         Findings& findings) {
    std::vector<std::string> seen;
    for (const ConfigAttribute& attribute : element.attributes) {
        if (!contains(known, attribute.name)) {
            findings.warning(attribute.place, "unknown attribute " +
                                                  zolt_text::quote(attribute.name) + " of " +
                                                  zolt_text::quote(element.name) + " is ignored" +
                                                  didYouMean(attribute.name, known));
        } else if (contains(seen, attribute.name)) {
            findings.warning(attribute.place, attribute.name +
                                                  " is repeated in this element: the last value "
                                                  "counts");
        } else {
            seen.push_back(attribute.name);
        }
    }
}

void checkNoText(const ConfigElement& element, Findings& findings) {
    if (element.text) {
        findings.warning(*element.text,
                         "text inside " + zolt_text::quote(element.name) + " is ignored");
    }
}

void checkNoChildren(const ConfigElement& element, Findings& findings) {
    for (const ConfigElement& child : element.children) {
        findings.warning(child.place, zolt_text::quote(child.name) + " inside " +
                                          zolt_text::quote(element.name) + " is ignored");
    }
}

}  // namespace zolt_check
