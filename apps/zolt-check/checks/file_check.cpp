#include "apps/zolt-check/checks/file_check.h"

#include <map>
#include <optional>

#include "apps/zolt-check/checks/interface_checks.h"
#include "apps/zolt-check/checks/name_checks.h"
#include "apps/zolt-check/checks/setting_checks.h"
#include "apps/zolt-check/document/config_document.h"
#include "apps/zolt-check/findings/spelling.h"
#include "apps/zolt-check/findings/wording.h"
#include "core/config_reader.h"
#include "core/config_schema.h"
#include "lib/text/printable.h"

namespace zolt_check {
namespace {

namespace schema = config_schema;

/// Reads the children of the root from top to bottom, as the daemon does.
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
                findings_.warning(element.place,
                                  "unknown element " + zolt_text::quote(element.name) +
                                      " is ignored" + didYouMean(element.name, known_));
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
                              "the interfaces above this Speed do not use it: they keep the speed "
                              "that was set above them");
        } else if (!isNew) {
            findings_.warning(element.place, zolt_text::quote(element.name) +
                                                 " is repeated (first in " + inLine(first->second) +
                                                 "): for what both set, the last one counts");
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
                         "the root element is " + zolt_text::quote(name) +
                             (hint.empty() ? ", not " + zolt_text::quote(schema::kRoot) : hint) +
                             ": zolt uses only defaults: no log, and interfaces that send no "
                             "banner, on ports that the system picks");
        return;
    }
    for (const ConfigElement& element : elements) {
        if (&element != root) {
            findings.warning(element.place, zolt_text::quote(element.name) +
                                                " next to the root element is "
                                                "ignored");
        }
    }
    RootCheck(findings).run(*root);
}

}  // namespace

CheckedFile checkFile(const std::string& path) {
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

}  // namespace zolt_check
