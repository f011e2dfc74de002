#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// Every target defines this function: one run with these bytes. It returns 0. All runs are
/// made in one process, so no run may leave anything behind for the next.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// Ends the process if `holds` is false: the current run is then a finding.
inline void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

/// The first bytes of the input, at most `most`, as text.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size, std::size_t most) {
    return {reinterpret_cast<const char*>(data), size < most ? size : most};
}

/// Reads an input from its start. After its end every byte is 0 and every text is empty.
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
