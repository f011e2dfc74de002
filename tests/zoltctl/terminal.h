#pragma once

#include <string>

#include "lib/os/descriptor.h"

namespace ctl_test {

/// A pseudo-terminal with a person in front of it.
class Terminal {
  public:
    Terminal();

    /// The end for the program that runs there.
    int inner() const { return inner_.get(); }
    void type(const std::string& keys) const;
    /// Waits until the program has shown `text` after what was waited for before;
    /// false when it does not come.
    bool shows(const std::string& text);
    /// All that the program has shown.
    const std::string& screen() const { return screen_; }
    /// Goes away, as a closed window does.
    void hangUp() { outer_.reset(); }

  private:
    zolt_os::Descriptor outer_;
    zolt_os::Descriptor inner_;
    std::string screen_;
    std::string::size_type seen_ = 0;
};

inline constexpr const char* kCtrlA = "\x01";
inline constexpr const char* kCtrlC = "\x03";
inline constexpr const char* kCtrlD = "\x04";
inline constexpr const char* kTab = "\t";
inline constexpr const char* kEnter = "\r";
inline constexpr const char* kBackspace = "\x7F";
inline constexpr const char* kUp = "\x1B[A";

}  // namespace ctl_test
