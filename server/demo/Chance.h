#pragma once

#include <cstdint>
#include <span>

namespace demo {

/// The same draws on every machine and with every library.
class Chance {
  public:
    explicit Chance(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t next() {
        m_state += 0x9E3779B97F4A7C15ULL;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    /// `low` to `high`, both possible.
    int between(int low, int high) { return low + int(next() % std::uint64_t(high - low + 1)); }
    bool inHundred(int percent) { return between(1, 100) <= percent; }
    template <typename T>
    const T& of(std::span<const T> choices) {
        return choices[std::size_t(next() % choices.size())];
    }

  private:
    std::uint64_t m_state;
};

} // namespace demo
