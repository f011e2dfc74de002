#include "apps/zoltctl/port_failure.h"

#include <algorithm>
#include <array>

namespace zoltctl {
namespace {

using zolt_ports::Reason;

struct ReasonRow {
    Reason reason;
    Status status;
    const char* hint;  ///< what the user can do, after the text of the error
};

constexpr std::array kReasons{
    ReasonRow{Reason::kBadLine, Status::kUsage, ""},
    ReasonRow{Reason::kNoPort, Status::kLocalFile,
              ": the configuration gives none; give it as an option"},
    ReasonRow{Reason::kUnreachable, Status::kNoDaemon, ""},
    ReasonRow{Reason::kHeld, Status::kHeld, ""},
    ReasonRow{Reason::kCut, Status::kCut, ""},
    ReasonRow{Reason::kTimeout, Status::kTimeout, " (--timeout)"},
    ReasonRow{Reason::kNotZolt, Status::kNotZolt, ""},
    ReasonRow{Reason::kRefused, Status::kRefused, ""},
    ReasonRow{Reason::kNotKnown, Status::kRefused,
              ", or its InpSeparator is not what --line-end says"},
    ReasonRow{Reason::kNoLineEnd, Status::kRefused, "; name its InpSeparator with --line-end"},
    ReasonRow{Reason::kInterrupted, Status::kInterrupted, ""},
};

}  // namespace

Failure failureOf(const zolt_ports::PortError& error) {
    const auto* row = std::find_if(kReasons.begin(), kReasons.end(), [&](const ReasonRow& entry) {
        return entry.reason == error.reason();
    });
    return {row->status, std::string(error.what()) + row->hint};
}

}  // namespace zoltctl
