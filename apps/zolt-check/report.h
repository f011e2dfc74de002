// What the program prints.
#pragma once

#include <string>

#include "apps/zolt-check/check.h"

namespace check {

struct ReportOptions {
    bool json = false;
    /// No settings and no verdict, only findings.
    bool quiet = false;
    /// Warnings leave the status at 0.
    bool errorsOnly = false;
};

/// 0 clean, 1 warnings, 2 the daemon would not start.
int exitStatus(const Result& result, bool errorsOnly);

/// The whole output for the file at `path`, with its last line end.
std::string report(const std::string& path, const Result& result, const ReportOptions& options);

}  // namespace check
