#pragma once

#include <stdexcept>

namespace bench {

/// Something did not work: no answer, something lost, other bytes than expected.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace bench
