// SPDX-License-Identifier: MIT
// The colours of the number pad and of the tableau: the last number, and the numbers that the two
// boxes below the tableau mark by how often they fell.
#pragma once

#include "controls/models.h"
#include "forms/program.h"
#include "platform/platform.h"

#include <optional>

namespace M_Tableau {

using forms::Program;

/// Settles which numbers are marked and which is last, from the counts, the two marking boxes, Coup
/// and Plein.
void Tableau_Aktualisieren(Program& program);

/// The colours of the pad cell xpLabel_Tableau(number), 0 to 36, as settled last.
controls::CellColors padColors(const Program& program, int number);

/// The colours of the tableau cell XPLabel_Tableauzahl(number), 0 to 36, as settled last.
controls::CellColors tableauColors(const Program& program, int number);

/// Whether the number is marked, as settled last.
bool marked(const Program& program, int number);

/// The colour of a number's rows: red and green numbers have one, black ones keep the paper's.
std::optional<controls::Color> rowColor(int number);

/// The colour of a number on pad and tableau, and of its pressed pad cell's background.
controls::Color classColor(int number);

} // namespace M_Tableau

namespace stats {

/// Asks for the count of box 1 ("genau") or 2 ("mind.") and marks by it. The number at the start of
/// the answer is rounded; from 0 to 1000 it is taken, anything beyond is refused with a message and
/// clears the box. Text without a number, a cancelled prompt too, reads as 0.
void askForMark(forms::Program& program, platform::Platform& platform, int box);

/// Empties box 1 or 2 and takes its marks away.
void clearMark(forms::Program& program, int box);

} // namespace stats
