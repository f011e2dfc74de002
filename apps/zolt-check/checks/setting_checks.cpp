#include "apps/zolt-check/checks/setting_checks.h"

#include <unistd.h>

#include <array>
#include <cstdint>
#include <string>

#include "apps/zolt-check/checks/log_file_check.h"
#include "apps/zolt-check/checks/name_checks.h"
#include "apps/zolt-check/findings/wording.h"
#include "common/text.h"
#include "core/config_schema.h"
#include "core/speed.h"
#include "lib/text/printable.h"

namespace zolt_check {
namespace {

namespace schema = config_schema;

/// At this level and above, the daemon writes no message.
constexpr std::int32_t kSilentLevel = 2;

void checkNumber(const ConfigAttribute& attribute, long number, Findings& findings) {
    if (const std::string why = whyCounted(attribute.value, number); !why.empty()) {
        findings.warning(attribute.place, attribute.name + " " + zolt_text::quote(attribute.value) +
                                              " counts as " + std::to_string(number) + ": " + why);
    }
}

void checkLoglevel(const ConfigAttribute& attribute, const CONFIG_DESCRIPTOR& config,
                   Findings& findings) {
    if (config.logLevel < kSilentLevel) {
        checkNumber(attribute, config.logLevel, findings);
        return;
    }
    findings.warning(attribute.place,
                     asCounted(attribute.name, attribute.value, config.logLevel) +
                         " writes nothing and uses up one open file per message: use 0 or 1");
}

void checkPercent(const ConfigAttribute& attribute, const CONFIG_DESCRIPTOR& config,
                  Findings& findings) {
    const long percent = ATOL(attribute.value);
    const std::string subject = asCounted(attribute.name, attribute.value, percent);
    const std::string pause = pauseText(config.threadDelay);
    if (percent < 1) {
        findings.warning(attribute.place,
                         subject + " is below 1: each pause lasts " + pause + ", longer than at 1");
    } else if (percent > 100) {
        findings.warning(attribute.place, subject + " is above 100: each pause lasts " + pause);
    } else {
        checkNumber(attribute, percent, findings);
    }
}

void checkAction(const ConfigAttribute& attribute, const CONFIG_DESCRIPTOR& /*config*/,
                 Findings& findings) {
    const std::string& value = attribute.value;
    if (!ATOB(value) && value != "FALSE" && value != "False" && value != "false") {
        findings.warning(attribute.place, attribute.name + " " + zolt_text::quote(value) +
                                              " is not TRUE, True or true: it counts as FALSE");
    }
}

void checkFilePath(const ConfigAttribute& attribute, const CONFIG_DESCRIPTOR& /*config*/,
                   Findings& findings) {
    if (!attribute.value.empty() && attribute.value.front() != '/') {
        findings.warning(attribute.place,
                         attribute.name + " " + zolt_text::quote(attribute.value) +
                             " is a relative path: it starts in the folder where zolt is started");
    }
}

struct ValueCheck {
    const char* attribute;
    void (*run)(const ConfigAttribute& attribute, const CONFIG_DESCRIPTOR& config,
                Findings& findings);
};

/// The attribute alone selects the check: settings that share the name of an attribute
/// also share its values.
constexpr std::array kValueChecks{
    ValueCheck{schema::kFile, checkFilePath},
    ValueCheck{schema::kLoglevel, checkLoglevel},
    ValueCheck{schema::kPercent, checkPercent},
    ValueCheck{schema::kAction, checkAction},
};

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "no " : " and no ") + name;
    }
    return text;
}

}  // namespace

void checkSetting(const ConfigElement& element, CONFIG_DESCRIPTOR& config, Findings& findings) {
    const std::vector<std::string> known = knownAttributes(element.name);
    checkAttributeNames(element, known, findings);
    checkNoText(element, findings);
    checkNoChildren(element, findings);
    if (element.attributes.empty()) {
        findings.warning(element.place,
                         zolt_text::quote(element.name) + " sets nothing: it has " + joined(known));
    }
    for (const ConfigAttribute& attribute : element.attributes) {
        for (const schema::Setting& row : schema::settings()) {
            if (element.name == row.element && attribute.name == row.attribute) {
                row.apply(config, attribute.value.c_str());
                for (const ValueCheck& check : kValueChecks) {
                    if (attribute.name == check.attribute) {
                        check.run(attribute, config, findings);
                    }
                }
            }
        }
    }
}

void checkLogFile(const std::string& path, ConfigPlace place, Findings& findings) {
    if (const std::string why = whyLogFileCannotBeOpened(path); !why.empty()) {
        findings.warning(place, "the log file " + zolt_text::quote(path) +
                                    " cannot be opened by user " + std::to_string(geteuid()) +
                                    ": " + why + "; zolt would run without a log");
    }
}

}  // namespace zolt_check
