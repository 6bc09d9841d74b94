// SPDX-License-Identifier: MIT
// The rippling picture: cells of 4 by 4 pixels that drift with a sine of the time of day.
#pragma once

#include "forms/programm.h"
#include "platform/platform.h"

namespace Unterwassereffekt {

inline constexpr int Zellgroesse = 4; ///< pixels

/// The surface that the cells are copied to.
class Flaeche {
public:
    virtual ~Flaeche() = default;
    /// Inner size in pixels.
    virtual int breite() const = 0;
    virtual int hoehe() const = 0;
    /// Copies a block of Zellgroesse squared from (quelleX, quelleY) of the still picture to (x, y)
    /// of the surface; what falls outside either is left out.
    virtual void kopieren(int quelleX, int quelleY, int x, int y) = 0;
};

/// Creates the field for a surface of the given inner size in pixels, all shifts 0.
void Feld_Anlegen(forms::Programm& programm, int breite, int hoehe);

/// One pass of the animation: moves every cell by its shift and copies it.
void Wasser_Animieren(forms::Programm& programm, platform::Clock& clock, Flaeche& flaeche);

} // namespace Unterwassereffekt
