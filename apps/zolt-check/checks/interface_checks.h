#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>

#include "apps/zolt-check/document/config_document.h"
#include "apps/zolt-check/findings/finding.h"
#include "core/config_schema.h"

namespace zolt_check {

/// Checks the entries of the Interfaces elements. The entries are read as the daemon
/// reads them, except that reading goes on after a port that is too low: the user then
/// sees all mistakes at once.
class InterfaceChecks {
  public:
    explicit InterfaceChecks(Findings& findings) : findings_(findings) {}

    /// Reads an Interfaces element. `config` holds the settings above this element.
    void read(const ConfigElement& interfaces, const CONFIG_DESCRIPTOR& config);
    /// Reports what is missing and what is in conflict, after the last Interfaces
    /// element. `root` is the place of these findings if there was no such element.
    void finish(ConfigPlace root);
    bool hasEntries() const { return hasEntries_; }

  private:
    struct Entry {
        INTERFACE_DESCRIPTOR values;
        ConfigPlace place;
        std::optional<ConfigPlace> portPlace;
        std::optional<ConfigPlace> outSeparatorPlace;
    };

    void readEntry(const ConfigElement& element, Entry& entry, const CONFIG_DESCRIPTOR& config);
    void readPort(const ConfigElement& element, const ConfigAttribute& attribute, Entry& entry,
                  const CONFIG_DESCRIPTOR& config);
    void checkName(const ConfigElement& element, const Entry& entry);
    void checkSeparators(const ConfigElement& element, const Entry& entry);
    void checkPortsInUse();
    void checkMonitorSeparator();

    Findings& findings_;
    /// The entries keep their values from one Interfaces element to the next, as in the
    /// daemon.
    std::array<Entry, config_schema::kEntryLimit> entries_;
    std::map<std::string, Entry> chosen_;
    std::optional<ConfigPlace> place_;
    bool hasEntries_ = false;
    bool stopped_ = false;
};

}  // namespace zolt_check
