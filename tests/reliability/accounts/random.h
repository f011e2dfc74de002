#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

namespace reliability {

/// Random numbers that depend only on a seed, on every machine.
class Random {
  public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    /// The numbers of one `part` of a seed. They are independent of those of any other part
    /// and of the same part of any other seed.
    Random(std::uint64_t seed, std::uint64_t part) : engine_(mixed(seed, part)) {}

    std::uint64_t number() { return engine_(); }
    /// A number from 0 to limit - 1.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    /// One element of a table or vector.
    template <typename Table>
    const auto& oneOf(const Table& table) {
        return table[below(std::size(table))];
    }
    /// `count` random bytes.
    std::string bytes(std::size_t count) {
        std::string text;
        while (text.size() < count) text += static_cast<char>(below(256));
        return text;
    }

  private:
    static std::mt19937_64 mixed(std::uint64_t seed, std::uint64_t part) {
        // A seed sequence uses only the low 32 bits of each number.
        std::seed_seq sequence{seed, seed >> 32, part, part >> 32};
        return std::mt19937_64(sequence);
    }

    std::mt19937_64 engine_;
};

}  // namespace reliability
