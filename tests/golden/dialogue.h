#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "tests/golden/item.h"
#include "tests/support/process/daemon_settings.h"

namespace golden {

/// The settings before the first action: the bus, and the daemon's configuration.
struct Setup {
    /// Text of the bus file. Without a text no simulated bus runs.
    std::optional<std::string> bus;
    std::string link = "/dev/ttyUSB0";
    int baud = 0;
    bool pollsShown = false;
    support::DaemonSettings settings;
    /// Text of a whole configuration file, which replaces the settings.
    std::optional<std::string> configuration;
};

/// One action and the items that it brings about.
struct Step {
    int line = 0;
    std::string verb;
    /// The rest of the action's line.
    std::string argument;
    /// Items that the verb itself demands; they come before those of `expected`.
    std::vector<Item> implied;
    /// Items that the dialogue writes below the action.
    std::vector<Item> expected;
    /// How long rebuild waits after the last item of the step.
    std::chrono::milliseconds settle{};

    std::string text() const { return argument.empty() ? verb : verb + ' ' + argument; }
};

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
