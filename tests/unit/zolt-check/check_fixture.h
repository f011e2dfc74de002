#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/zolt-check/checks/file_check.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

/// Checks texts as configuration files. A finding is a line without the name of the
/// file: "2:8: warning: text".
class CheckFixture : public testing::Test {
  protected:
    using Lines = std::vector<std::string>;

    zolt_check::CheckedFile checkText(const std::string& text) {
        support::writeFile(path_, text);
        return zolt_check::checkFile(path_);
    }

    static Lines linesOf(const zolt_check::CheckedFile& result) {
        Lines lines;
        for (const zolt_check::Finding& finding : result.findings) {
            lines.push_back(
                std::to_string(finding.place.line) + ":" + std::to_string(finding.place.column) +
                (finding.severity == zolt_check::Severity::kError ? ": error: " : ": warning: ") +
                finding.text);
        }
        return lines;
    }

    Lines findings(const std::string& text) { return linesOf(checkText(text)); }

    /// The findings of a file that has these children of the root from line 2 on and no
    /// mistake after them.
    Lines inRoot(const std::string& children) {
        return findings("<ZOLTConfig>\n" + children + "\n<Interfaces>" + kCae + kIo + kMon +
                        "</Interfaces></ZOLTConfig>");
    }

    /// The findings of a file that has only these entries, from line 3 on.
    Lines entries(const std::string& entries) {
        return findings("<ZOLTConfig><Debuglog File=\"/dev/null\"/>\n<Interfaces>\n" + entries +
                        "\n</Interfaces></ZOLTConfig>");
    }

    static constexpr const char* kCae = R"(<I Name="CAE" Port="4001"/>)";
    static constexpr const char* kIo = R"(<I Name="IO" Port="4002"/>)";
    static constexpr const char* kMon = R"(<I Name="MON" Port="4003"/>)";

    support::TemporaryFolder folder_;
    std::string path_ = folder_.file("zoltconf.xml");
};
