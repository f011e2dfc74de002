#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

namespace reliability {

/// Numbers that follow from a seed alone, on every machine.
class Random {
  public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}

    std::uint64_t number() { return engine_(); }
    /// 0 to limit - 1.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    /// One of the elements of a table or vector.
    template <typename Table>
    const auto& oneOf(const Table& table) {
        return table[below(std::size(table))];
    }
    /// Any bytes.
    std::string bytes(std::size_t count) {
        std::string text;
        while (text.size() < count) text += static_cast<char>(below(256));
        return text;
    }

  private:
    std::mt19937_64 engine_;
};

}  // namespace reliability
