// SPDX-License-Identifier: MIT
// Placing one coup in the sorted view.
#pragma once

#include "forms/program.h"

namespace M_Permanenz {

using forms::Program;

/// Writes the marks of the number Plein into row Coup of the sorted view, by the selected family
/// and mode. It neither clears nor reads other cells. The row must exist.
void Sortierung_Coup(Program& program);

/// What Sortierung_Coup makes of a row that looks like `row`: every rule of the family is tried,
/// and each match writes the number (`codes` false) or the code that matched. A family that is
/// none leaves the row as it is.
controls::RowPattern withMarks(controls::RowPattern row, int family, bool codes, int plein);

/// Empties columns 2 to 16 of a row; its serial number and its colours stay.
controls::RowPattern withoutMarks(controls::RowPattern row);

/// Drops ready-made rows that no longer fit the grids, the family or the mode.
void checkReadyRows(Program& program);

} // namespace M_Permanenz
