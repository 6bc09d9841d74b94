// SPDX-License-Identifier: MIT
// The rippling picture.
#include "info/water.h"

#include <algorithm>
#include <cmath>

namespace Unterwassereffekt {

namespace {

constexpr double StepSize = 0.5; ///< pixels

/// Cells beside the first one along a length in pixels: halves to the even neighbour.
int cellsAlong(int length) {
    return static_cast<int>(std::nearbyint(static_cast<double>(length) / CellSize));
}

/// A cell's drift in one pass, in pixels; `index` counts its column or row from 0.
float drift(platform::Clock& clock, int index) {
    return static_cast<float>(std::sin(clock.secondsSinceMidnight() * index) * StepSize);
}

int rounded(float pixels) {
    return static_cast<int>(std::nearbyint(pixels));
}

} // namespace

void createField(forms::Program& program, int width, int height) {
    forms::WaterField& field = program.Wasser_Feld;
    field.columns = cellsAlong(width) + 1;
    field.rows = cellsAlong(height) + 1;
    field.cells.assign(
        static_cast<std::size_t>(field.columns) * static_cast<std::size_t>(field.rows), {});
}

void Wasser_Animieren(forms::Program& program, platform::Clock& clock, Surface& surface) {
    forms::WaterField& field = program.Wasser_Feld;
    const int columns = std::min(cellsAlong(surface.innerWidth()) + 1, field.columns);
    const int rows = std::min(cellsAlong(surface.innerHeight()) + 1, field.rows);
    for (int i = 0; i < columns; ++i)
        for (int j = 0; j < rows; ++j) {
            forms::WaterCell& cell = field(i, j);
            cell.BasisX = static_cast<float>(i * CellSize);
            cell.BasisY = static_cast<float>(j * CellSize);
            cell.VersatzX += drift(clock, i);
            cell.VersatzY += drift(clock, j);
            surface.copyCell(i * CellSize, j * CellSize, rounded(cell.VersatzX + cell.BasisX),
                rounded(cell.VersatzY + cell.BasisY));
        }
}

} // namespace Unterwassereffekt
