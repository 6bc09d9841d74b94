// SPDX-License-Identifier: MIT
// How often every chance and number has fallen, and the texts that show it.
#pragma once

#include "forms/plan.h"
#include "forms/program.h"

#include <cstdint>
#include <span>
#include <string>

namespace M_Chancen {

using forms::Program;

/// The second of a coup's three steps: counts it.
void Chancen_Coup(Program& program);

/// Counts Plein (0 to 36); the chances' counts follow.
void Chancen_Zaehlen(Program& program);

// Counts change here alone.

/// Adds `coups` of a number, 0 to 36; negative when they are taken back.
void count(Program& program, int number, std::int64_t coups);

/// Counts many coups at once.
void countAll(Program& program, std::span<const std::uint8_t> numbers);

/// Sets all counts to 0.
void clear(Program& program);

std::int64_t Anz_Noir(const Program& program);
std::int64_t Anz_Rouge(const Program& program);
std::int64_t Anz_Pair(const Program& program);
std::int64_t Anz_Impair(const Program& program);
std::int64_t Anz_Passe(const Program& program);
std::int64_t Anz_Manque(const Program& program);
std::int64_t Anz_Kolonne(const Program& program, int kolonne); ///< 1 to 3
std::int64_t Anz_Dutzend(const Program& program, int dutzend); ///< 1 to 3
std::int64_t Anz_TVS(const Program& program, int transversale); ///< 1 to 11
std::int64_t Anz_TVP(const Program& program, int transversale); ///< 1 to 14
std::int64_t Anz_Plein(const Program& program, int number); ///< 0 to 36
/// How many different numbers have fallen, 0 to 37.
int Anz_Gefallen(const Program& program);

/// The caption of a label that shows a counter: one of XPLabel_N to XPLabel_TVP with its index
/// (0 for those without), XPLabel_Plein with a number, or Label with index 4. Such a caption is
/// fixed text and a count, joined here when it is read, so that a coup needn't write any text.
std::string captionOf(const Program& program, forms::plan::Name name, int index);

/// The text colour (ForeColorDis) of the badge XPLabel_Plein(number): white once it has fallen.
controls::Color badgeColor(const Program& program, int number);

} // namespace M_Chancen
