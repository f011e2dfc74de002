#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/zolt-check/check.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

/// Checks texts as configuration files. Findings come as lines without the
/// file's name: "2:8: warning: text".
class CheckFixture : public testing::Test {
  protected:
    using Lines = std::vector<std::string>;

    check::Result checkText(const std::string& text) {
        support::writeFile(path_, text);
        return check::checkFile(path_);
    }

    static Lines linesOf(const check::Result& result) {
        Lines lines;
        for (const check::Finding& finding : result.findings) {
            lines.push_back(
                std::to_string(finding.place.line) + ":" + std::to_string(finding.place.column) +
                (finding.severity == check::Severity::kError ? ": error: " : ": warning: ") +
                finding.text);
        }
        return lines;
    }

    Lines findings(const std::string& text) { return linesOf(checkText(text)); }

    /// With these children of the root from line 2 on, and nothing wrong behind.
    Lines inRoot(const std::string& children) {
        return findings("<ZOLTConfig>\n" + children + "\n<Interfaces>" + kCae + kIo + kMon +
                        "</Interfaces></ZOLTConfig>");
    }

    /// With these entries from line 3 on, alone.
    Lines entries(const std::string& entries) {
        return findings("<ZOLTConfig><Debuglog File=\"/dev/null\"/>\n<Interfaces>\n" + entries +
                        "\n</Interfaces></ZOLTConfig>");
    }

    static constexpr const char* kCae = R"(<I Name="CAE" Port="4001"/>)";
    static constexpr const char* kIo = R"(<I Name="IO" Port="4002"/>)";
    static constexpr const char* kMon = R"(<I Name="MON" Port="4003"/>)";

    TemporaryFolder folder_;
    std::string path_ = folder_.file("zoltconf.xml");
};
