#pragma once

#include <string>
#include <vector>

#include "core/config_document.h"

namespace check {

enum class Severity {
    kWarning,  ///< the daemon starts, but not as the file suggests
    kError,    ///< the daemon does not start
};

struct Finding {
    Severity severity;
    ConfigPlace place;
    std::string text;
};

/// Collects what the checks find.
class Findings {
  public:
    void error(ConfigPlace place, std::string text);
    void warning(ConfigPlace place, std::string text);

    /// In the order of their places.
    std::vector<Finding> sorted() const;

  private:
    std::vector<Finding> list_;
};

}  // namespace check
