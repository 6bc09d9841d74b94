// SPDX-License-Identifier: MIT
// The random generator of the drawn series.
#pragma once

#include "chances/chancentabelle.h"

#include <chrono>
#include <cstdint>

namespace files {

/// Mixes the clock into the generator's state. The state moves on with every call, also while the
/// clock stands still, so that no two draws within one tick start from the same state.
inline void seed(std::uint64_t& state, std::chrono::nanoseconds clock) {
    // The step is odd, so it is never 0, and under a standing clock all 2^64 states come before one
    // comes again (Weyl sequence). The constant is 2^64 divided by the golden ratio.
    state += 0x9E3779B97F4A7C15U + 2 * static_cast<std::uint64_t>(clock.count());
}

/// A draw: 24 random bits, a fraction of 2^24.
/// Source of the mixing steps: Steele, Lea, Flood, "Fast Splittable Pseudorandom Number
/// Generators", 2014 (variant 13).
inline std::uint32_t draw(std::uint64_t state) {
    std::uint64_t bits = state;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    bits ^= bits >> 31;
    return static_cast<std::uint32_t>(bits >> 40);
}

/// The number of a draw, 0 to 36: bits * 37 / 2^24, rounded down.
constexpr int toNumber(std::uint32_t draw) {
    return static_cast<int>(draw * chances::NumberCount >> 24);
}

} // namespace files
