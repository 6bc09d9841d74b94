// SPDX-License-Identifier: MIT
// The counted chances, a row each: which label shows one, its words, and the numbers it counts.
#pragma once

#include "chances/chancentabelle.h"
#include "forms/plan.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace stats {

/// A chance that is counted. Its count is the sum of its numbers' counts, for a number carries a
/// code at most once.
struct CountedChance {
    forms::plan::Name label{};
    int index = 0; ///< the label's index, 0 if it has none
    std::string_view name{}; ///< e.g. "Noir" or "TVS"
    chances::NumberSet numbers = 0;
};

/// A group of counted chances: one code, or the decimal texts of 1 to `count`.
struct ChanceGroup {
    forms::plan::Name label{};
    std::string_view name{};
    std::string_view code{}; ///< empty for a numbered group
    int count = 1;
    int firstColumn = 0; ///< columns of the Chancentabelle that may hold the code
    int lastColumn = 0;
};

inline constexpr std::array ChanceGroups{
    ChanceGroup{
        forms::plan::Name::XPLabel_N, "Noir", "N", 1, chances::NoirRouge, chances::NoirRouge},
    ChanceGroup{
        forms::plan::Name::XPLabel_R, "Rouge", "R", 1, chances::NoirRouge, chances::NoirRouge},
    ChanceGroup{
        forms::plan::Name::XPLabel_P, "Pair", "P", 1, chances::PairImpair, chances::PairImpair},
    ChanceGroup{
        forms::plan::Name::XPLabel_I, "Impair", "I", 1, chances::PairImpair, chances::PairImpair},
    ChanceGroup{forms::plan::Name::XPLabel_Ps, "Passe", "Ps", 1, chances::PasseManque,
        chances::PasseManque},
    ChanceGroup{
        forms::plan::Name::XPLabel_M, "Manque", "M", 1, chances::PasseManque, chances::PasseManque},
    ChanceGroup{forms::plan::Name::XPLabel_K, "K", "", 3, chances::Kolonne, chances::Kolonne},
    ChanceGroup{forms::plan::Name::XPLabel_D, "D", "", 3, chances::Dutzend, chances::Dutzend},
    ChanceGroup{
        forms::plan::Name::XPLabel_TVS, "TVS", "", 11, chances::TvsFirst, chances::TvsSecond},
    ChanceGroup{
        forms::plan::Name::XPLabel_TVP, "TVP", "", 14, chances::TvpFirst, chances::TvpFourteen},
};

namespace detail {

consteval std::size_t count() {
    std::size_t sum = 0;
    for (const ChanceGroup& group : ChanceGroups)
        sum += static_cast<std::size_t>(group.count);
    return sum;
}

consteval auto countedChances() {
    std::array<CountedChance, count()> counted{};
    std::size_t next = 0;
    for (const ChanceGroup& group : ChanceGroups)
        for (int i = 1; i <= group.count; ++i) {
            const bool single = !group.code.empty();
            const auto code = single ? group.code : chances::code(i, chances::Plein);
            counted[next++] = {group.label, single ? 0 : i, group.name,
                chances::numbersWith(code, group.firstColumn, group.lastColumn)};
        }
    return counted;
}

} // namespace detail

inline constexpr auto CountedChances = detail::countedChances();
static_assert(
    CountedChances.size() == forms::plan::CounterLabels.size(), "a label for each counter");

} // namespace stats
