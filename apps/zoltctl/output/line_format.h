#pragma once

#include <string>

#include "apps/zoltctl/output/time_stamp.h"

namespace zoltctl {

/// A line of a port and the time at which it came.
struct TimedLine {
    WallTime time;
    std::string text;
};

/// How the lines of a port are shown.
class LineFormat {
  public:
    LineFormat() = default;
    virtual ~LineFormat() = default;
    LineFormat(const LineFormat&) = delete;
    LineFormat& operator=(const LineFormat&) = delete;

    /// Runs on the output thread before the first line is written, and has to come to an
    /// end by itself. `hurry` is a descriptor that becomes readable when it should.
    virtual void prepare(int /*hurry*/) {}
    /// Runs on the reading thread for each line. Throws zolt_ports::PortError for a line
    /// that cannot come on the port.
    virtual void check(const std::string& /*line*/) const {}
    /// Runs on the output thread, for lines that have passed check(). Returns the line to
    /// write, without a line feed.
    virtual std::string format(const TimedLine& line) const = 0;
};

}  // namespace zoltctl
