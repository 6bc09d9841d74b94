// SPDX-License-Identifier: MIT
// The shape of the sorted view: what the family selector and the grid lines give it.
#pragma once

#include "forms/programm.h"

namespace Auswahl {

/// Gives the sorted view the captions and widths of the selected family.
void Familie_Anwenden(forms::Programm& programm);

/// Switches the view's grid lines by the state of the grid itself, and its width with them.
void Gitter_Umschalten(forms::Programm& programm);

} // namespace Auswahl
