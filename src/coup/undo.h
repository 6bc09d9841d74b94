// SPDX-License-Identifier: MIT
// Going back: clearing the whole permanence, or taking back its last coup.
#pragma once

#include "forms/program.h"

namespace M_Eingabe {

using forms::Program;

/// Clears counters, rows and Coup. Plein, the marking boxes, family and mode stay.
void Chancen_Reset(Program& program);

/// Takes back the last coup; without one it only repaints the tableau.
void Rueckgaengig(Program& program);

} // namespace M_Eingabe
