#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// What every target defines: one run with these bytes. Always 0. Runs follow
/// each other in one process, so nothing may be left over from one to the next.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// Ends the process when something that has to hold does not: the run that led
/// to it is then a finding.
inline void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

/// At most `most` bytes of the input as text.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size, std::size_t most) {
    return {reinterpret_cast<const char*>(data), size < most ? size : most};
}

/// Reads an input from its start; behind its end everything is 0 or empty.
class Input {
  public:
    explicit Input(std::string_view bytes) : rest_(bytes) {}

    bool ended() const { return rest_.empty(); }
    std::uint8_t byte() {
        const std::string_view one = bytes(1);
        return one.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(one.front());
    }
    std::string_view bytes(std::size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

  private:
    std::string_view rest_;
};

}  // namespace fuzz
