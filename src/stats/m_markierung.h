// SPDX-License-Identifier: MIT
// Marking numbers by how often they fell: the two boxes below the tableau.
#pragma once

#include "forms/programm.h"
#include "platform/platform.h"

namespace M_Markierung {

/// Asks for the count of box 1 ("genau") or 2 ("mind.") and marks by it. A whole value from 0 to
/// 1000 is taken, anything beyond is refused with a message and clears the box. Text without a
/// number, a cancelled prompt too, reads as 0.
void Abfragen(forms::Programm& programm, platform::Platform& platform, int box);

/// Empties box 1 or 2 and takes its marks away.
void Loeschen(forms::Programm& programm, int box);

} // namespace M_Markierung
