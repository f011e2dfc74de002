#pragma once

#include <cstddef>
#include <deque>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/wait.h"

namespace reliability {

/// Records what has been done to the daemon, to be printed when something fails. Only the
/// last four chapters are kept: the effect of a storm shows in the calm after that storm or
/// in the next storm.
class Diary {
  public:
    /// Begins a chapter.
    void begin(const std::string& chapter);
    /// Adds a line to the chapter. A text that is repeated takes one line with a count.
    void note(const std::string& text);
    /// Drops everything that is noted from now on, until it is called with false.
    void pause(bool on) { paused_ = on; }
    /// Writes a line for each note, with the seconds since this object was made.
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
