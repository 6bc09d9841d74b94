// SPDX-License-Identifier: MIT
// The random generator of the drawn series.
#pragma once

#include <chrono>
#include <cstdint>

namespace files {

/// Mixes the clock into the generator's state. The state moves on with every call, also while the
/// clock stands still, so that draws within one tick differ.
inline void seed(std::uint64_t& state, std::chrono::nanoseconds clock) {
    // The step is odd, so it is never 0, and under a standing clock all 2^64 states come before one
    // comes again (Weyl sequence). The constant is 2^64 divided by the golden ratio.
    state += 0x9E3779B97F4A7C15U + 2 * static_cast<std::uint64_t>(clock.count());
}

/// A float from 0 up to, but not including 1, of 24 random bits. Source of the mixing steps:
/// Steele, Lea, Flood, "Fast Splittable Pseudorandom Number Generators", 2014 (variant 13).
inline float draw(std::uint64_t state) {
    std::uint64_t bits = state;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    bits ^= bits >> 31;
    return static_cast<float>(bits >> 40) * 0x1p-24F;
}

/// The number of a draw: floor(x * 37), 0 to 36. A double holds the product exactly.
inline int numberOf(float x) {
    return static_cast<int>(static_cast<double>(x) * 37.0);
}

} // namespace files
