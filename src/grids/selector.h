// SPDX-License-Identifier: MIT
// The shape of the sorted view: what the family selector and the grid lines give it.
#pragma once

#include "forms/program.h"

namespace grids {

/// Gives the sorted view the captions and widths of the selected family.
void applyFamily(forms::Program& program);

/// Switches the view's grid lines by the state of the grid itself, and its width with them.
void toggleLines(forms::Program& program);

} // namespace grids
