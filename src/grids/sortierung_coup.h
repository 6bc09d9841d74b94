// SPDX-License-Identifier: MIT
// Placing one coup in the sorted view.
#pragma once

#include "forms/programm.h"

namespace M_Permanenz {

using forms::Programm;

/// Writes the marks of the number Plein into row Coup of the sorted view, by the selected family
/// and mode. It neither clears nor reads other cells. The row must exist.
void Sortierung_Coup(Programm& programm);

/// What Sortierung_Coup makes of a row that looks like `zeile`: every rule of the family is tried,
/// and each match writes the number (`einfach` false) or the code that matched. A family that is
/// none leaves the row as it is.
controls::RowPattern Mit_Marken(controls::RowPattern zeile, int familie, bool einfach, int plein);

/// Empties columns 2 to 16 of a row; its serial number and its colours stay.
controls::RowPattern Ohne_Marken(controls::RowPattern zeile);

/// Drops ready-made rows that no longer fit the grids, the family or the mode.
void Fertigzeilen_Pruefen(Programm& programm);

} // namespace M_Permanenz
