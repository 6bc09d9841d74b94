// SPDX-License-Identifier: MIT
// A coup's way into the permanence, in the fixed order of its steps, and the ways back.
#pragma once

#include "forms/program.h"

#include <cstdint>
#include <span>

namespace M_Permanenz {

using forms::Program;

/// A coup from any source: Plein becomes `number` (0 to 36), Coup rises, then the three steps of
/// the pipeline run. On std::bad_alloc the permanence is as it was before this coup.
void takeCoup(Program& program, int number);

/// A block of coups, each a number from 0 to 36; with the same effect as one by one. On
/// std::bad_alloc the coups before the failing one have been taken in.
void takeCoups(Program& program, std::span<const std::uint8_t> numbers);

/// The coup's rows and its place in the sorted view. Plein and Coup must be set already.
void Eingabe_Coup(Program& program);

/// Appends the coup's row to the sorted view and to the store. On std::bad_alloc the
/// sorted view may have its row already; takeCoup takes it off again.
void Permanenz_Zeile(Program& program);

} // namespace M_Permanenz

namespace M_Eingabe {

using forms::Program;

/// Clears counters, rows and Coup. Plein, the marking boxes, family and mode stay.
void Chancen_Reset(Program& program);

/// Takes back the last coup; without one it only settles the tableau's marks.
void Rueckgaengig(Program& program);

} // namespace M_Eingabe
