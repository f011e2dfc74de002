#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "lib/os/descriptor.h"
#include "tests/support/files.h"
#include "tests/support/process/child_process.h"
#include "tests/support/process/daemon_settings.h"
#include "tests/support/process/private_view.h"

/// Runs zolt-check in a private view with an empty work folder.
class CheckProgramTest : public testing::Test {
  protected:
    void SetUp() override { support::enterTestBed(); }

    /// Runs zolt-check and returns how it ended: "status 0". Standard output goes to
    /// `target`.
    std::string run(std::vector<std::string> arguments, const std::string& target = kOutput) {
        arguments.insert(arguments.begin(), ZOLT_CHECK_PROGRAM);
        const zolt_os::Descriptor output(
            ::open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600));
        const zolt_os::Descriptor error(::open(kError, O_WRONLY | O_CREAT | O_TRUNC, 0600));
        support::StandardStreams streams;
        streams.output = output.get();
        streams.error = error.get();
        const auto end = support::reap(support::spawn(arguments, streams));
        return end ? support::describeWaitStatus(*end) : "still running";
    }
    static std::string output() { return support::readFile(kOutput); }
    static std::string error() { return support::readFile(kError); }

    /// Writes a configuration into the work folder and returns its path.
    static std::string write(const std::string& text) {
        support::writeFile(kFile, text);
        return kFile;
    }

    static constexpr const char* kFile = "/run/zolt-test/x.xml";
    static constexpr const char* kOutput = "/run/zolt-test/stdout";
    static constexpr const char* kError = "/run/zolt-test/stderr";

    const std::string clean_ = support::DaemonSettings().toXml();
    const std::string refused_ =
        "<ZOLTConfig><Interfaces><I Name=\"IO\" Port=\"80\"/></Interfaces>"
        "</ZOLTConfig>";
};
