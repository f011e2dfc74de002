#include "apps/zolt-check/checks/interface_checks.h"

#include "apps/zolt-check/checks/name_checks.h"
#include "apps/zolt-check/checks/port_setting.h"
#include "apps/zolt-check/checks/separator_checks.h"
#include "apps/zolt-check/findings/spelling.h"
#include "apps/zolt-check/findings/wording.h"
#include "lib/text/printable.h"

namespace zolt_check {
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
        findings_.warning(interfaces.place, zolt_text::quote(interfaces.name) +
                                                " is repeated (first in " + inLine(*place_) +
                                                "): each entry starts with the values of the "
                                                "earlier entry in the same position");
    } else {
        place_ = interfaces.place;
    }
    for (std::size_t i = 0; i < interfaces.children.size(); ++i) {
        const ConfigElement& child = interfaces.children[i];
        if (i == entries_.size()) {
            const std::size_t more = interfaces.children.size() - i - 1;
            findings_.warning(
                child.place,
                "only the first " + std::to_string(i) + " entries are read: this one" +
                    (more == 0 ? " is ignored"
                               : " and " + std::to_string(more) + " more are ignored"));
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
        text += " and reads nothing after it";
        if (config.debugLogFile.empty()) {
            text += "; no log reports this, because no log file is set above this line";
        } else if (entry.values.name.empty() && lastOf(element, schema::kName) != nullptr) {
            text += "; its log does not name the interface, because Name comes after Port";
        }
    }
    findings_.error(attribute.place, text);
    stopped_ = true;
}

void InterfaceChecks::checkName(const ConfigElement& element, const Entry& entry) {
    const std::string& name = entry.values.name;
    const std::vector<std::string> known = knownInterfaces();
    if (name.empty()) {
        findings_.warning(element.place, "the entry has no Name: it is dropped");
        return;
    }
    if (!contains(known, name)) {
        const ConfigAttribute* typed = lastOf(element, schema::kName);
        findings_.warning(typed == nullptr ? element.place : typed->place,
                          zolt_text::quote(name) + " is not an interface: the entry is dropped" +
                              didYouMean(name, known));
        return;
    }
    checkSeparators(element, entry);
    const auto [earlier, isNew] = chosen_.try_emplace(name, entry);
    if (!isNew) {
        findings_.warning(element.place, "interface " + zolt_text::quote(name) +
                                             " is repeated (first in " +
                                             inLine(earlier->second.place) +
                                             "): this entry replaces the first one completely");
        earlier->second = entry;
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
                              "interface " + zolt_text::quote(name) +
                                  " is missing: it listens on a port that the system picks and "
                                  "sends no banner");
        } else if (entry->second.values.port == 0 && !entry->second.portPlace) {
            findings_.warning(
                entry->second.place,
                "interface " + zolt_text::quote(name) +
                    " has no Port: the system picks one each time the interface is opened");
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
                              "port " + std::to_string(port) + " of " + zolt_text::quote(name) +
                                  " is also the port of " + zolt_text::quote(user->second) +
                                  ", which is opened first: " + zolt_text::quote(name) +
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
                          "OutSeparator of \"MON\" is never used: lines keep the line end that "
                          "they have on IO, " +
                              shownSeparator(io->second.values.outSeparator));
    }
}

}  // namespace zolt_check
