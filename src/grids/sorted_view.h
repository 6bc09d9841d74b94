// SPDX-License-Identifier: MIT
// The sorted view: its shape, the marks of one coup, and all marks placed again.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

namespace grids {

/// Sets the view's captions and widths to those of the selected family.
void applyFamily(forms::Program& program);

/// Switches the view's grid lines by the state of the grid itself, and its width with them.
void toggleLines(forms::Program& program);

} // namespace grids

namespace M_Permanenz {

using forms::Program;

/// Writes the marks of the number Plein into row Coup of the view, by the selected family and mode.
/// It neither clears nor reads other cells. The row must exist. On std::bad_alloc it has not
/// changed.
void Sortierung_Coup(Program& program);

/// Empties the marks of every row of the view and places every coup of the store again, with the
/// progress dialog showing how far it has come. It can't be cancelled; painting gets its turns,
/// input doesn't. Plein and Coup run along and end where they began. If memory fails for a
/// row, it keeps its marks.
void Sortierung_Neu(Program& program, platform::Platform& platform);

} // namespace M_Permanenz
