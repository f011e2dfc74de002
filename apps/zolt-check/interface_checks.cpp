#include "apps/zolt-check/interface_checks.h"

#include "apps/zolt-check/name_checks.h"
#include "apps/zolt-check/port.h"
#include "apps/zolt-check/separator_checks.h"
#include "apps/zolt-check/spelling.h"
#include "apps/zolt-check/wording.h"

namespace check {
namespace {

namespace schema = config_schema;

const ConfigAttribute* lastOf(const ConfigElement& element, const std::string& name) {
    const ConfigAttribute* last = nullptr;
    for (const ConfigAttribute& attribute : element.attributes) {
        if (attribute.name == name) {
            last = &attribute;
        }
    }
    return last;
}

}  // namespace

void InterfaceChecks::read(const ConfigElement& interfaces, const CONFIG_DESCRIPTOR& config) {
    checkAttributeNames(interfaces, {}, findings_);
    checkNoText(interfaces, findings_);
    if (place_) {
        findings_.warning(interfaces.place, inQuotes(interfaces.name) +
                                                " is given again (first in " + inLine(*place_) +
                                                "): each entry starts with the values that the "
                                                "one in its position had");
    } else {
        place_ = interfaces.place;
    }
    for (std::size_t i = 0; i < interfaces.children.size(); ++i) {
        const ConfigElement& child = interfaces.children[i];
        if (i == entries_.size()) {
            const std::size_t more = interfaces.children.size() - i - 1;
            findings_.warning(child.place,
                              "only the first " + std::to_string(i) +
                                  " entries are read: not this one" +
                                  (more == 0 ? "" : " and " + std::to_string(more) + " behind it"));
            return;
        }
        readEntry(child, entries_[i], config);
        hasEntries_ = true;
    }
}

void InterfaceChecks::readEntry(const ConfigElement& element, Entry& entry,
                                const CONFIG_DESCRIPTOR& config) {
    entry.place = element.place;
    entry.portPlace.reset();
    entry.outSeparatorPlace.reset();
    checkAttributeNames(element, knownEntryAttributes(), findings_);
    checkNoText(element, findings_);
    checkNoChildren(element, findings_);
    for (const ConfigAttribute& attribute : element.attributes) {
        for (const schema::EntryAttribute& row : schema::entryAttributes()) {
            if (attribute.name == row.name) {
                row.apply(entry.values, attribute.value.c_str());
            }
        }
        if (attribute.name == schema::kPort) {
            readPort(element, attribute, entry, config);
        } else if (attribute.name == schema::kOutSeparator) {
            entry.outSeparatorPlace = attribute.place;
        }
    }
    checkName(element, entry);
}

void InterfaceChecks::readPort(const ConfigElement& element, const ConfigAttribute& attribute,
                               Entry& entry, const CONFIG_DESCRIPTOR& config) {
    entry.portPlace = attribute.place;
    if (entry.values.port >= schema::kLowestPort) {
        if (const std::string surprise = portSurprise(attribute.value, entry.values.port);
            !surprise.empty()) {
            findings_.warning(attribute.place, surprise);
        }
        return;
    }
    std::string text = asCounted(schema::kPort, attribute.value, entry.values.port) + " is below " +
                       std::to_string(schema::kLowestPort) + ": zolt does not start";
    if (!stopped_) {
        text += ", and reads nothing behind it";
        if (config.debugLogFile.empty()) {
            text += "; no log says so, for no log file is named above";
        } else if (entry.values.name.empty() && lastOf(element, schema::kName) != nullptr) {
            text += "; its log names no interface, for Name stands behind Port";
        }
    }
    findings_.error(attribute.place, text);
    stopped_ = true;
}

void InterfaceChecks::checkName(const ConfigElement& element, const Entry& entry) {
    const std::string& name = entry.values.name;
    const std::vector<std::string> known = knownInterfaces();
    if (name.empty()) {
        findings_.warning(element.place, "the entry has no Name and is dropped");
        return;
    }
    if (!contains(known, name)) {
        const ConfigAttribute* typed = lastOf(element, schema::kName);
        findings_.warning(
            typed == nullptr ? element.place : typed->place,
            inQuotes(name) + " is no interface and its entry is dropped" + didYouMean(name, known));
        return;
    }
    checkSeparators(element, entry);
    const auto [known_, isNew] = chosen_.try_emplace(name, entry);
    if (!isNew) {
        findings_.warning(element.place, "interface " + inQuotes(name) +
                                             " is given again (first in " +
                                             inLine(known_->second.place) +
                                             "): this entry replaces the other wholly");
        known_->second = entry;
    }
}

void InterfaceChecks::checkSeparators(const ConfigElement& element, const Entry& entry) {
    for (const ConfigAttribute& attribute : element.attributes) {
        if (attribute.name == schema::kInpSeparator) {
            checkSeparator(attribute, entry.values.inpSeparator, entry.values.name, findings_);
        } else if (attribute.name == schema::kOutSeparator) {
            checkSeparator(attribute, entry.values.outSeparator, entry.values.name, findings_);
        }
    }
}

void InterfaceChecks::finish(ConfigPlace root) {
    for (const std::string& name : knownInterfaces()) {
        const auto entry = chosen_.find(name);
        if (entry == chosen_.end()) {
            findings_.warning(place_.value_or(root),
                              "interface " + inQuotes(name) +
                                  " is missing: it listens on a port that the system picks, and "
                                  "welcomes nobody");
        } else if (entry->second.values.port == 0 && !entry->second.portPlace) {
            findings_.warning(entry->second.place,
                              "interface " + inQuotes(name) +
                                  " has no Port: the system picks one at every opening");
        }
    }
    checkPortsInUse();
    checkMonitorSeparator();
}

void InterfaceChecks::checkPortsInUse() {
    std::map<std::uint16_t, std::string> users;
    for (const std::string& name : knownInterfaces()) {
        const auto entry = chosen_.find(name);
        if (entry == chosen_.end() || boundPort(entry->second.values.port) == 0) {
            continue;
        }
        const std::uint16_t port = boundPort(entry->second.values.port);
        const auto [user, isNew] = users.try_emplace(port, name);
        if (!isNew) {
            findings_.warning(entry->second.portPlace.value_or(entry->second.place),
                              "port " + std::to_string(port) + " of " + inQuotes(name) +
                                  " is also that of " + inQuotes(user->second) +
                                  ", which is opened first: " + inQuotes(name) +
                                  " listens on a port that the system picks");
        }
    }
}

void InterfaceChecks::checkMonitorSeparator() {
    const auto monitor = chosen_.find("MON");
    const auto io = chosen_.find("IO");
    if (monitor == chosen_.end() || io == chosen_.end() || !monitor->second.outSeparatorPlace) {
        return;
    }
    if (monitor->second.values.outSeparator != io->second.values.outSeparator) {
        findings_.warning(*monitor->second.outSeparatorPlace,
                          "OutSeparator of \"MON\" is never used: its lines keep the ends that "
                          "they have on IO, " +
                              shownSeparator(io->second.values.outSeparator));
    }
}

}  // namespace check
