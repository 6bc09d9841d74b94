// SPDX-License-Identifier: MIT
// A coup's way into the permanence: its rows in the grids and the fixed order of steps.
#pragma once

#include "forms/programm.h"

#include <cstdint>
#include <span>

namespace M_Permanenz {

using forms::Programm;

/// A coup from any source: Plein becomes `zahl` (0 to 36), Coup rises, then the three steps of the
/// pipeline run. Throws std::bad_alloc with the permanence as it was before this coup.
void Coup_Aufnehmen(Programm& programm, int zahl);

/// A block of coups, each a number from 0 to 36; the same as one after the other. Throws
/// std::bad_alloc with the coups before the failing one taken in.
void Coups_Aufnehmen(Programm& programm, std::span<const std::uint8_t> zahlen);

/// The coup's rows and its place in the sorted view. Plein and Coup must be set already.
void Eingabe_Coup(Programm& programm);

/// Appends the coup's row to the sorted view and to the store. Throws std::bad_alloc with both
/// grids as they were.
void Permanenz_Zeile(Programm& programm);

} // namespace M_Permanenz
