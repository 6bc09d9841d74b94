// SPDX-License-Identifier: MIT
// Measures on forms: twips, 1,440 to the inch, and the one way from them to logical pixels.
#pragma once

namespace controls {

/// A length or position in twips.
using Twips = int;

inline constexpr Twips TwipsPerPixel = 15;

/// The logical pixel (96 to the inch) next to a position in twips; 15 twips leave no halves. Only
/// edges are converted, never widths: two controls that meet in twips then meet in pixels as well.
constexpr int toPixels(Twips edge) {
    const Twips half = edge < 0 ? -TwipsPerPixel / 2 : TwipsPerPixel / 2;
    return (edge + half) / TwipsPerPixel;
}

/// A rectangle in twips, relative to the container.
struct Rect {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;

    constexpr Twips right() const { return left + width; }
    constexpr Twips bottom() const { return top + height; }
    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

} // namespace controls
