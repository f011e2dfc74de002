// Walks the tables of what a configuration may hold, so that a new row that zolt-check does
// not show or does not judge fails here.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "apps/zolt-check/checks/file_check.h"
#include "apps/zolt-check/report.h"
#include "core/config_schema.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

/// For each setting one of these differs from its default, and one is a mistake.
constexpr std::array kValues{"1", "TRUE", "0", "2", "101", "no word of ours", "/dev/null", ";"};

class EverySetting : public testing::Test {
  protected:
    /// A file with one attribute of one child of the root.
    zolt_check::CheckedFile withSetting(const std::string& element, const std::string& attribute,
                                        const std::string& value) {
        return checkText("<" + element + " " + attribute + "=\"" + value + "\"/>", "");
    }
    /// A file in which the entry of CAE has one more attribute.
    zolt_check::CheckedFile withEntryAttribute(const std::string& attribute,
                                               const std::string& value) {
        return checkText("", attribute + "=\"" + value + "\"");
    }
    zolt_check::CheckedFile plain() { return checkText("", ""); }

    static std::string text(const zolt_check::CheckedFile& result) {
        return zolt_check::report("file", {result.config, {}}, {});
    }
    static std::string json(const zolt_check::CheckedFile& result) {
        return zolt_check::report("file", {result.config, {}}, {.json = true});
    }

  private:
    zolt_check::CheckedFile checkText(const std::string& setting, const std::string& attribute) {
        const std::string port = attribute.starts_with("Port=") ? "" : R"( Port="4001")";
        const std::string name = attribute.starts_with("Name=") ? "" : R"( Name="CAE")";
        support::writeFile(path_, "<ZOLTConfig>" + setting + "<Interfaces><I" + name + port + " " +
                                      attribute +
                                      R"(/><I Name="IO" Port="4002"/>)"
                                      R"(<I Name="MON" Port="4003"/></Interfaces></ZOLTConfig>)");
        return zolt_check::checkFile(path_);
    }

    support::TemporaryFolder folder_;
    std::string path_ = folder_.file("zoltconf.xml");
};

TEST_F(EverySetting, IsShownAsTextAndAsJson) {
    for (const config_schema::Setting& row : config_schema::settings()) {
        SCOPED_TRACE(std::string(row.element) + " " + row.attribute);
        const auto someValue = [&](const auto& shown) {
            return std::any_of(kValues.begin(), kValues.end(), [&](const char* value) {
                return shown(withSetting(row.element, row.attribute, value)) != shown(plain());
            });
        };
        EXPECT_TRUE(someValue(text));
        EXPECT_TRUE(someValue(json));
    }
}

TEST_F(EverySetting, HasAValueThatIsReported) {
    EXPECT_TRUE(plain().findings.empty());
    for (const config_schema::Setting& row : config_schema::settings()) {
        EXPECT_TRUE(
            std::any_of(kValues.begin(), kValues.end(),
                        [&](const char* value) {
                            return !withSetting(row.element, row.attribute, value).findings.empty();
                        }))
            << row.element << " " << row.attribute;
    }
}

TEST_F(EverySetting, OfAnInterfaceIsShownAsJsonAndHasAValueThatIsReported) {
    for (const config_schema::EntryAttribute& row : config_schema::entryAttributes()) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(std::any_of(kValues.begin(), kValues.end(), [&](const char* value) {
            return json(withEntryAttribute(row.name, value)) != json(plain());
        }));
        EXPECT_TRUE(std::any_of(kValues.begin(), kValues.end(), [&](const char* value) {
            return !withEntryAttribute(row.name, value).findings.empty();
        }));
    }
}

}  // namespace
