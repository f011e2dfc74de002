// The entries of the Interfaces elements.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>

#include "apps/zolt-check/finding.h"
#include "core/config_schema.h"

namespace check {

/// Reads the entries as the daemon does, except that it goes on behind a port
/// that is too low, so that all mistakes come at once.
class InterfaceChecks {
  public:
    explicit InterfaceChecks(Findings& findings) : findings_(findings) {}

    /// An Interfaces element; `config` as it stands above it.
    void read(const ConfigElement& interfaces, const CONFIG_DESCRIPTOR& config);
    /// Behind the last element: what is missing or in conflict. `root` is the
    /// place of what is missing when there is no Interfaces element.
    void finish(ConfigPlace root);
    /// Whether an entry has been read.
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
    /// Kept from one Interfaces element to the next, as by the daemon.
    std::array<Entry, config_schema::kEntryLimit> entries_;
    std::map<std::string, Entry> chosen_;
    std::optional<ConfigPlace> place_;
    bool hasEntries_ = false;
    bool stopped_ = false;
};

}  // namespace check
