// SPDX-License-Identifier: MIT
// Colour values as the models keep them: 32 bits, red + 256 * green + 65536 * blue.
#pragma once

#include <cstdint>

namespace controls {

/// A colour value, red + 256 * green + 65536 * blue, or a system colour (top bit set).
using Color = std::uint32_t;

/// The colour value of three parts from 0 to 255 each.
constexpr Color rgb(unsigned red, unsigned green, unsigned blue) {
    return red + 256U * green + 65536U * blue;
}

inline constexpr Color Black = rgb(0, 0, 0);
inline constexpr Color White = rgb(255, 255, 255);
inline constexpr Color Red = rgb(255, 0, 0);
inline constexpr Color Green = rgb(0, 255, 0);
inline constexpr Color Blue = rgb(0, 0, 255);
inline constexpr Color Cloth = rgb(0, 192, 0);

/// System colours: the window maps them to its fixed palette.
inline constexpr Color ActiveTitle = 0x80000002;
inline constexpr Color WindowBackground = 0x80000005;
inline constexpr Color WindowText = 0x80000008;
inline constexpr Color HighlightText = 0x8000000E;
inline constexpr Color ButtonFace = 0x8000000F;
inline constexpr Color GreyText = 0x80000011;

} // namespace controls
