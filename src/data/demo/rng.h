#pragma once

#include <cstdint>

// splitmix64: the same numbers from the same seed on every compiler and library, which the
// standard distributions do not promise.
class Rng {
public:
    explicit Rng(std::uint64_t seed)
        : m_state(seed * 0x9E3779B97F4A7C15ULL + 0x2545F4914F6CDD1DULL) {}

    std::uint64_t next() {
        std::uint64_t z = (m_state += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    // 0 .. n-1 (n > 0).
    int below(int n) { return int(next() % std::uint64_t(n)); }
    // lo .. hi inclusive.
    int between(int lo, int hi) { return lo + below(hi - lo + 1); }
    // True with the given chance in percent.
    bool percent(int chance) { return below(100) < chance; }
    template <typename T, std::size_t N> const T& pick(const T (&items)[N]) {
        return items[below(int(N))];
    }

private:
    std::uint64_t m_state;
};
