// SPDX-License-Identifier: MIT
// The seven chance families through which a permanence can be looked at.
#pragma once

#include <array>
#include <string_view>

namespace chances {

/// Names as the selector lists them; the position in this list is a family's number.
inline constexpr std::array<std::string_view, 7> FamilyNames{
    "Noir/Rouge",
    "Pair/Impair",
    "Passe/Manque",
    "Kolonnen",
    "Dutzende",
    "Transversalen Simple",
    "Transversalen Plein",
};

} // namespace chances
