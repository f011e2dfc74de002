#pragma once

#include <string>
#include <vector>

#include "tests/golden/item.h"
#include "tests/golden/setup.h"
#include "tests/golden/step.h"

namespace golden {

/// A golden dialogue. The format is described in docs/dialogues.md.
class Dialogue {
  public:
    /// Throws std::invalid_argument with the text "NAME:LINE: reason".
    static Dialogue parse(const std::string& name, const std::string& text);

    const std::string& name() const { return name_; }
    const Setup& setup() const { return setup_; }
    const std::vector<Step>& steps() const { return steps_; }

    /// Returns the text of the file with the items of `perStep`, one list for each step, as
    /// its expectations. Settings, actions and comments stay. Implied items are left out;
    /// throws std::runtime_error when a list lacks one of them.
    std::string withExpectations(const std::vector<std::vector<Item>>& perStep) const;

  private:
    struct SourceLine {
        std::string text;
        bool expectation = false;
        bool action = false;
    };

    void readLine(SourceLine& source, int number);

    std::string name_;
    Setup setup_;
    std::vector<Step> steps_;
    std::vector<SourceLine> lines_;
    // Longer than each pause of the daemon: a closed port is opened again after 2 x 2 s.
    std::chrono::milliseconds settle_{5500};
};

}  // namespace golden
