// SPDX-License-Identifier: MIT
// The chance families, a row each: the shape of the sorted view, and the rules by which a family
// places a coup. A further family is one more row here; a code that the Chancentabelle lacks needs
// a column there.
#pragma once

#include "chances/chancentabelle.h"
#include "controls/twips.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace grids {

using controls::Twips;

/// The sorted view has these columns for every family; a family uses the first of them.
inline constexpr int ViewColumnCount = 16;
inline constexpr int FirstMarkColumn = 2;
inline constexpr Twips SerialWidth = 800;
inline constexpr Twips MarkWidth = 300;
inline constexpr Twips ScrollBarWidth = 310;

/// A placement rule: where column `tableColumn` of the Chancentabelle holds exactly `code`, a mark
/// goes into each of the view's columns `first` to `last`.
struct Rule {
    int tableColumn;
    std::string_view code;
    int first;
    int last;
};

/// Captions of the view's columns `first` to `last`: a text, followed by numbers that count up
/// from `firstNumber` if there is one.
struct Captions {
    int first;
    int last;
    std::string_view text;
    std::optional<int> firstNumber{};
};

/// A family's shape and rules. Widths in twips, of the whole grid without lines and with them.
struct Family {
    std::string_view name;
    std::string_view serialCaption;
    bool setsSerialWidth;
    Twips width;
    Twips widthWithLines;
    std::span<const Captions> captions;
    std::span<const Rule> rules;
};

namespace detail {

/// A value of a simple chance stands in a column of its own, the zero between the two.
template <int TableColumn>
consteval std::array<Rule, 3> simpleRules(std::string_view left, std::string_view right) {
    return {{{TableColumn, left, 2, 2}, {TableColumn, "Z", 3, 3}, {TableColumn, right, 4, 4}}};
}

/// Three values; a zero belongs to none and is marked in all.
template <int TableColumn>
consteval std::array<Rule, 4> threeRules() {
    return {{{TableColumn, "1", 2, 2}, {TableColumn, "2", 3, 3}, {TableColumn, "3", 4, 4},
        {TableColumn, "Z", 2, 4}}};
}

inline constexpr auto NoirRouge = simpleRules<chances::NoirRouge>("N", "R");
inline constexpr auto PairImpair = simpleRules<chances::PairImpair>("P", "I");
inline constexpr auto PasseManque = simpleRules<chances::PasseManque>("Ps", "M");
inline constexpr auto Kolonnen = threeRules<chances::Kolonne>();
inline constexpr auto Dutzende = threeRules<chances::Dutzend>();

/// The zero's range holds the separator column too.
inline constexpr std::array TransversalenSimple{
    Rule{chances::TvsFirst, "1", 2, 2},
    Rule{chances::TvsFirst, "2", 3, 3},
    Rule{chances::TvsFirst, "3", 4, 4},
    Rule{chances::TvsFirst, "4", 5, 5},
    Rule{chances::TvsFirst, "5", 6, 6},
    Rule{chances::TvsFirst, "6", 7, 7},
    Rule{chances::TvsSecond, "7", 9, 9},
    Rule{chances::TvsSecond, "8", 10, 10},
    Rule{chances::TvsSecond, "9", 11, 11},
    Rule{chances::TvsSecond, "10", 12, 12},
    Rule{chances::TvsSecond, "11", 13, 13},
    Rule{chances::TvsFirst, "Z", 2, 13},
};

/// No rule for "Z": the zero is a true member of 13 and 14.
inline constexpr std::array TransversalenPlein{
    Rule{chances::TvpFirst, "1", 2, 2},
    Rule{chances::TvpFirst, "2", 3, 3},
    Rule{chances::TvpFirst, "3", 4, 4},
    Rule{chances::TvpFirst, "4", 5, 5},
    Rule{chances::TvpFirst, "5", 6, 6},
    Rule{chances::TvpFirst, "6", 7, 7},
    Rule{chances::TvpFirst, "7", 8, 8},
    Rule{chances::TvpFirst, "8", 9, 9},
    Rule{chances::TvpFirst, "9", 10, 10},
    Rule{chances::TvpFirst, "10", 11, 11},
    Rule{chances::TvpFirst, "11", 12, 12},
    Rule{chances::TvpFirst, "12", 13, 13},
    Rule{chances::TvpThirteen, "13", 15, 15},
    Rule{chances::TvpFourteen, "14", 16, 16},
};

inline constexpr std::array NrCaptions{
    Captions{2, 2, "N"}, Captions{3, 3, "Z"}, Captions{4, 4, "R"}};
inline constexpr std::array PiCaptions{
    Captions{2, 2, "P"}, Captions{3, 3, "Z"}, Captions{4, 4, "I"}};
inline constexpr std::array PsmCaptions{
    Captions{2, 2, "Ps"}, Captions{3, 3, "Z"}, Captions{4, 4, "M"}};
inline constexpr std::array KCaptions{Captions{2, 4, "K", 1}};
inline constexpr std::array DCaptions{Captions{2, 4, "D", 1}};
inline constexpr std::array TvsCaptions{
    Captions{2, 7, "", 1}, Captions{8, 8, "#"}, Captions{9, 13, "", 7}};
inline constexpr std::array TvpCaptions{
    Captions{2, 13, "", 1}, Captions{14, 14, "#"}, Captions{15, 16, "", 13}};

} // namespace detail

/// The families in the selector's order, which is their number there.
inline constexpr std::array Families{
    Family{"Noir/Rouge", "Cp / NR", false, 2010, 2075, detail::NrCaptions, detail::NoirRouge},
    Family{"Pair/Impair", "Cp / PI", false, 2010, 2075, detail::PiCaptions, detail::PairImpair},
    Family{"Passe/Manque", "Cp / PsM", false, 2010, 2075, detail::PsmCaptions, detail::PasseManque},
    Family{"Kolonnen", "Cp / K", false, 2010, 2075, detail::KCaptions, detail::Kolonnen},
    Family{"Dutzende", "Cp / D", false, 2010, 2075, detail::DCaptions, detail::Dutzende},
    Family{"Transversalen Simple", "Cp / TVS", true, 4710, 4910, detail::TvsCaptions,
        detail::TransversalenSimple},
    Family{"Transversalen Plein", "Cp / TVP", true, 5610, 5870, detail::TvpCaptions,
        detail::TransversalenPlein},
};

namespace detail {

/// Whether the widths have room for all columns that captions and rules name; the view leaves out
/// those that don't fit.
constexpr bool fits(const Family& family) {
    const int columns = family.captions.back().last;
    const Twips bare = SerialWidth + (columns - 1) * MarkWidth + ScrollBarWidth;
    return columns <= ViewColumnCount && family.width >= bare
        && family.widthWithLines >= bare + columns * controls::TwipsPerPixel
        && std::all_of(family.rules.begin(), family.rules.end(),
            [&](const Rule& rule) { return rule.last <= columns; });
}
static_assert(std::all_of(Families.begin(), Families.end(), fits));

} // namespace detail

/// The family of a selector entry, or nothing for a number that is none.
constexpr const Family* family(int listIndex) {
    if (listIndex < 0 || listIndex >= static_cast<int>(Families.size()))
        return nullptr;
    return &Families[static_cast<std::size_t>(listIndex)];
}

} // namespace grids
