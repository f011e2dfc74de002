#include "apps/zolt-check/check.h"

#include <map>
#include <optional>

#include "apps/zolt-check/interface_checks.h"
#include "apps/zolt-check/name_checks.h"
#include "apps/zolt-check/setting_checks.h"
#include "apps/zolt-check/spelling.h"
#include "apps/zolt-check/wording.h"
#include "core/config_document.h"
#include "core/config_reader.h"
#include "core/config_schema.h"

namespace check {
namespace {

namespace schema = config_schema;

/// Walks the children of the root from top to bottom, as the daemon does.
class RootCheck {
  public:
    explicit RootCheck(Findings& findings) : findings_(findings), interfaces_(findings) {}

    void run(const ConfigElement& root) {
        checkAttributeNames(root, {}, findings_);
        checkNoText(root, findings_);
        for (const ConfigElement& element : root.children) {
            if (element.name == schema::kInterfaces) {
                interfaces_.read(element, config_);
            } else if (contains(known_, element.name)) {
                readSetting(element);
            } else {
                findings_.warning(element.place, "unknown element " + inQuotes(element.name) +
                                                     " is not read" +
                                                     didYouMean(element.name, known_));
            }
        }
        interfaces_.finish(root.place);
        if (logFilePlace_) {
            checkLogFile(config_.debugLogFile, *logFilePlace_, findings_);
        }
    }

  private:
    void readSetting(const ConfigElement& element) {
        const std::int32_t delay = config_.threadDelay;
        checkSetting(element, config_, findings_);
        for (const ConfigAttribute& attribute : element.attributes) {
            if (element.name == schema::kDebuglog && attribute.name == schema::kFile) {
                logFilePlace_ = attribute.place;
            }
        }
        const auto [first, isNew] = firstPlaces_.try_emplace(element.name, element.place);
        if (config_.threadDelay != delay && interfaces_.hasEntries()) {
            findings_.warning(element.place,
                              "the interfaces above this Speed do not see it: they keep the pace "
                              "set above them");
        } else if (!isNew) {
            findings_.warning(element.place, inQuotes(element.name) + " is given again (first in " +
                                                 inLine(first->second) +
                                                 "): what both set is set by the last");
        }
    }

    Findings& findings_;
    InterfaceChecks interfaces_;
    const std::vector<std::string> known_ = knownElements();
    CONFIG_DESCRIPTOR config_;
    std::map<std::string, ConfigPlace> firstPlaces_;
    std::optional<ConfigPlace> logFilePlace_;
};

void checkTree(const std::vector<ConfigElement>& elements, Findings& findings) {
    const ConfigElement* root = nullptr;
    for (const ConfigElement& element : elements) {
        if (root == nullptr && element.name == schema::kRoot) {
            root = &element;
        }
    }
    if (root == nullptr) {
        const std::string& name = elements.front().name;
        const std::string hint = didYouMean(name, {schema::kRoot});
        findings.warning(elements.front().place,
                         "the root element is " + inQuotes(name) +
                             (hint.empty() ? ", not " + inQuotes(schema::kRoot) : hint) +
                             ": nothing is read, and all defaults stand: no log, and interfaces "
                             "that welcome nobody on ports that the system picks");
        return;
    }
    for (const ConfigElement& element : elements) {
        if (&element != root) {
            findings.warning(element.place, inQuotes(element.name) +
                                                " beside the root element is "
                                                "not read");
        }
    }
    RootCheck(findings).run(*root);
}

}  // namespace

Result checkFile(const std::string& path) {
    Findings findings;
    const ConfigDocument document = loadConfigDocument(path);
    if (!document.fault.empty()) {
        findings.error(document.faultPlace, document.fault + "; zolt does not start");
        CONFIG_DESCRIPTOR nothing;
        nothing.errorText = kUnloadable;
        return {nothing, findings.sorted()};
    }
    checkTree(document.elements, findings);
    const CONFIG_DESCRIPTOR config = readConfigFile(path);
    return {config, findings.sorted()};
}

}  // namespace check
