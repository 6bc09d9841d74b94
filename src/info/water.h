// SPDX-License-Identifier: MIT
// The rippling picture: cells of 4 by 4 pixels that drift with a sine of the time of day.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

namespace Unterwassereffekt {

inline constexpr int CellSize = 4; ///< pixels

/// The surface that the cells are copied to.
class Surface {
public:
    virtual ~Surface() = default;
    /// Inner size in pixels.
    virtual int innerWidth() const = 0;
    virtual int innerHeight() const = 0;
    /// Copies a block of CellSize squared from (sourceX, sourceY) of the still picture to (x, y)
    /// of the surface; what falls outside either is left out.
    virtual void copyCell(int sourceX, int sourceY, int x, int y) = 0;
};

/// Creates the field for a surface of the given inner size in pixels, all shifts 0.
void createField(forms::Program& program, int width, int height);

/// One pass of the animation: moves the shift of every cell on, and copies the cell to its place.
void Wasser_Animieren(forms::Program& program, platform::Clock& clock, Surface& surface);

} // namespace Unterwassereffekt
