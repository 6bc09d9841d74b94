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
struct Zaehlwerk {
    forms::plan::Name label{};
    int index = 0; ///< the label's index, 0 if it has none
    std::string_view name{}; ///< e.g. "Noir" or "TVS"
    chances::NumberSet zahlen = 0;
};

/// A group of counted chances: one code, or the decimal texts of 1 to `count`.
struct Zaehlgruppe {
    forms::plan::Name label{};
    std::string_view name{};
    std::string_view code{}; ///< empty for a numbered group
    int count = 1;
    int firstColumn = 0; ///< columns of the Chancentabelle that may hold the code
    int lastColumn = 0;
};

inline constexpr std::array Zaehlgruppen{
    Zaehlgruppe{
        forms::plan::Name::XPLabel_N, "Noir", "N", 1, chances::NoirRouge, chances::NoirRouge},
    Zaehlgruppe{
        forms::plan::Name::XPLabel_R, "Rouge", "R", 1, chances::NoirRouge, chances::NoirRouge},
    Zaehlgruppe{
        forms::plan::Name::XPLabel_P, "Pair", "P", 1, chances::PairImpair, chances::PairImpair},
    Zaehlgruppe{
        forms::plan::Name::XPLabel_I, "Impair", "I", 1, chances::PairImpair, chances::PairImpair},
    Zaehlgruppe{forms::plan::Name::XPLabel_Ps, "Passe", "Ps", 1, chances::PasseManque,
        chances::PasseManque},
    Zaehlgruppe{
        forms::plan::Name::XPLabel_M, "Manque", "M", 1, chances::PasseManque, chances::PasseManque},
    Zaehlgruppe{forms::plan::Name::XPLabel_K, "K", "", 3, chances::Kolonne, chances::Kolonne},
    Zaehlgruppe{forms::plan::Name::XPLabel_D, "D", "", 3, chances::Dutzend, chances::Dutzend},
    Zaehlgruppe{
        forms::plan::Name::XPLabel_TVS, "TVS", "", 11, chances::TvsErste, chances::TvsZweite},
    Zaehlgruppe{
        forms::plan::Name::XPLabel_TVP, "TVP", "", 14, chances::TvpErste, chances::TvpVierzehn},
};

inline constexpr std::array<std::string_view, 15> Zahlentexte{
    "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14"};

namespace detail {

consteval std::size_t anzahl() {
    std::size_t sum = 0;
    for (const Zaehlgruppe& gruppe : Zaehlgruppen)
        sum += static_cast<std::size_t>(gruppe.count);
    return sum;
}

consteval auto zaehlwerke() {
    std::array<Zaehlwerk, anzahl()> werke{};
    std::size_t next = 0;
    for (const Zaehlgruppe& gruppe : Zaehlgruppen)
        for (int i = 1; i <= gruppe.count; ++i) {
            const bool einzeln = !gruppe.code.empty();
            const auto code = einzeln ? gruppe.code : Zahlentexte[static_cast<std::size_t>(i)];
            werke[next++] = {gruppe.label, einzeln ? 0 : i, gruppe.name,
                chances::numbersWith(code, gruppe.firstColumn, gruppe.lastColumn)};
        }
    return werke;
}

} // namespace detail

inline constexpr auto Zaehlwerke = detail::zaehlwerke();
static_assert(Zaehlwerke.size() == forms::plan::CounterLabels.size(), "a label for each counter");

} // namespace stats
