// SPDX-License-Identifier: MIT
// The rippling picture.
#include "info/wasser.h"

#include <algorithm>
#include <cmath>

namespace Unterwassereffekt {

namespace {

constexpr double Schrittweite = 0.5; ///< pixels

/// Cells beside the first one along a length in pixels: halves to the even neighbour.
int zellen(int laenge) {
    return static_cast<int>(std::nearbyint(static_cast<double>(laenge) / Zellgroesse));
}

/// A cell's drift in one pass, in pixels; `index` counts its column or row from 0.
float drift(platform::Clock& clock, int index) {
    return static_cast<float>(std::sin(clock.secondsSinceMidnight() * index) * Schrittweite);
}

int gerundet(float pixels) {
    return static_cast<int>(std::nearbyint(pixels));
}

} // namespace

void Feld_Anlegen(forms::Programm& programm, int breite, int hoehe) {
    forms::Wasserfeld& feld = programm.Wasser_Feld;
    feld.Spalten = zellen(breite) + 1;
    feld.Zeilen = zellen(hoehe) + 1;
    feld.Zellen.assign(
        static_cast<std::size_t>(feld.Spalten) * static_cast<std::size_t>(feld.Zeilen), {});
}

void Wasser_Animieren(forms::Programm& programm, platform::Clock& clock, Flaeche& flaeche) {
    forms::Wasserfeld& feld = programm.Wasser_Feld;
    const int spalten = std::min(zellen(flaeche.breite()) + 1, feld.Spalten);
    const int zeilen = std::min(zellen(flaeche.hoehe()) + 1, feld.Zeilen);
    for (int i = 0; i < spalten; ++i)
        for (int j = 0; j < zeilen; ++j) {
            forms::Wasserzelle& zelle = feld(i, j);
            zelle.BasisX = static_cast<float>(i * Zellgroesse);
            zelle.BasisY = static_cast<float>(j * Zellgroesse);
            zelle.VersatzX += drift(clock, i);
            zelle.VersatzY += drift(clock, j);
            flaeche.kopieren(i * Zellgroesse, j * Zellgroesse,
                gerundet(zelle.VersatzX + zelle.BasisX), gerundet(zelle.VersatzY + zelle.BasisY));
        }
}

} // namespace Unterwassereffekt
