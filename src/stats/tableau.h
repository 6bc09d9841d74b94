// SPDX-License-Identifier: MIT
// The colours of the number pad and of the tableau: the last number and the marked ones.
#pragma once

#include "controls/models.h"
#include "forms/program.h"

namespace M_Tableau {

using forms::Program;

/// Paints pad and tableau from the counts, the two marking boxes, Coup and Plein.
void Tableau_Aktualisieren(Program& program);

/// The colours of the pad cell xpLabel_Tableau(number) as painted last, number 0 to 36.
controls::CellColors padColors(const Program& program, int number);

/// The colours of the tableau cell XPLabel_Tableauzahl(number) as painted last, number 0 to 36.
controls::CellColors tableauColors(const Program& program, int number);

/// The colour of a number's class: zero, red or black. Also a pressed pad cell's background.
controls::Color classColor(int number);

} // namespace M_Tableau
