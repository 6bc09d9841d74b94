// SPDX-License-Identifier: MIT
// Marking numbers by how often they fell: the two boxes below the tableau.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

namespace stats {

/// Asks for the count of box 1 ("genau") or 2 ("mind.") and marks by it. The number at the start of
/// the answer is rounded; from 0 to 1000 it is taken, anything beyond is refused with a message and
/// clears the box. Text without a number, a cancelled prompt too, reads as 0.
void askForMark(forms::Program& program, platform::Platform& platform, int box);

/// Empties box 1 or 2 and takes its marks away.
void clearMark(forms::Program& program, int box);

} // namespace stats
