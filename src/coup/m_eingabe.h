// SPDX-License-Identifier: MIT
// Going back: clearing the whole permanence, or taking back its last coup.
#pragma once

#include "forms/programm.h"

namespace M_Eingabe {

using forms::Programm;

/// Clears counters, rows and Coup. Plein, the marking boxes, family and mode stay.
void Chancen_Reset(Programm& programm);

/// Takes back the last coup; without one it only repaints the tableau.
void Rueckgaengig(Programm& programm);

} // namespace M_Eingabe
