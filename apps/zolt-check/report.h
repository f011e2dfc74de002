#pragma once

#include <string>

#include "apps/zolt-check/checks/file_check.h"

namespace zolt_check {

/// The options of the command line that change the report.
struct ReportOptions {
    bool json = false;
    /// Whether the report has findings only, without settings and verdict.
    bool quiet = false;
    /// Warnings leave the exit status at 0.
    bool errorsOnly = false;
};

/// 0: the file is clean; 1: there are warnings; 2: the daemon would not start.
int exitStatus(const CheckedFile& result, bool errorsOnly);

/// The complete output for the file at `path`, in whole lines.
std::string report(const std::string& path, const CheckedFile& result,
                   const ReportOptions& options);

}  // namespace zolt_check
