#pragma once

#include <cstddef>
#include <deque>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/wait.h"

namespace reliability {

/// What has been done to the daemon lately, to be told when something fails.
/// Only the last four chapters are kept: what a storm has done may show in the
/// calm behind it, or in the next storm.
class Diary {
  public:
    /// Ends the chapter before it.
    void begin(const std::string& chapter);
    /// The same text several times in a row takes one line.
    void note(const std::string& text);
    /// While on, what is noted is forgotten.
    void pause(bool on) { paused_ = on; }
    /// A line for each note, with the seconds since this object was made.
    void write(std::ostream& out) const;

  private:
    struct Entry {
        double seconds;
        std::string text;
        std::size_t times;
    };
    struct Chapter {
        std::string title;
        std::vector<Entry> entries;
    };

    double now() const;

    const support::Clock::time_point begin_ = support::Clock::now();
    std::deque<Chapter> chapters_;
    bool paused_ = false;
};

}  // namespace reliability
