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
    /// The numbers of one `part` of what follows from a seed. Neither the same
    /// part of neighbouring seeds nor neighbouring parts share any.
    Random(std::uint64_t seed, std::uint64_t part) : engine_(mixed(seed, part)) {}

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
    static std::mt19937_64 mixed(std::uint64_t seed, std::uint64_t part) {
        // A seed sequence takes 32 bits of each number.
        std::seed_seq sequence{seed, seed >> 32, part, part >> 32};
        return std::mt19937_64(sequence);
    }

    std::mt19937_64 engine_;
};

}  // namespace reliability
