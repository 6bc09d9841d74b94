// SPDX-License-Identifier: MIT
// The set-up of the main window's data at start.
#pragma once

#include "forms/program.h"

namespace M_ProgrammLaden {

/// Builds the grids, fills the selector and sets the start values, in this order. Runs once.
void Programm_Laden(forms::Program& program);

/// Sets the columns of grids 0, 1 and 3 and the 37 rows of the Chancentabelle.
void Grids_Einrichten(forms::Program& program);

/// Fills the selector with the families and selects the first.
void Combo_Fuellen(forms::Program& program);

/// No coup and no number yet.
void Startwerte_Setzen(forms::Program& program);

} // namespace M_ProgrammLaden
