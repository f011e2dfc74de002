#pragma once

#include <string>
#include <vector>

#include "apps/zolt-check/document/config_place.h"

namespace zolt_check {

enum class Severity {
    kWarning,  ///< the daemon starts, but not as the file suggests
    kError,    ///< the daemon does not start
};

/// One mistake or surprise in a configuration file.
struct Finding {
    Severity severity;
    ConfigPlace place;
    std::string text;
};

/// Collects the findings of all checks.
class Findings {
  public:
    void error(ConfigPlace place, std::string text);
    void warning(ConfigPlace place, std::string text);

    /// All findings in the order of their places; those of one place stay in the order
    /// in which they were reported.
    std::vector<Finding> sorted() const;

  private:
    std::vector<Finding> list_;
};

}  // namespace zolt_check
