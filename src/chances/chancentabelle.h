// SPDX-License-Identifier: MIT
// What a number of the single-zero wheel belongs to: 37 rows of chance codes.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace chances {

inline constexpr int NumberCount = 37;
inline constexpr int TableColumnCount = 11;

/// Columns of the table, counted from 1.
enum Column {
    Plein = 1,
    NoirRouge = 2,
    PairImpair = 3,
    PasseManque = 4,
    Kolonne = 5,
    Dutzend = 6,
    TvsFirst = 7,
    TvsSecond = 8,
    TvpFirst = 9,
    TvpThirteen = 10,
    TvpFourteen = 11,
};

using Row = std::array<std::string_view, TableColumnCount>;

/// The table by number. Empty: the column doesn't apply. Colours, columns, dozens and transversals
/// are those of the French table; 1 and 2 share one row of three with the zero, 2 and 3 another.
inline constexpr std::array<Row, NumberCount> Chancentabelle{{
    {"0", "Z", "Z", "Z", "Z", "Z", "Z", "Z", "Z", "13", "14"},
    {"1", "R", "I", "M", "1", "1", "1", "", "1", "13", ""},
    {"2", "N", "P", "M", "2", "1", "1", "", "1", "13", "14"},
    {"3", "R", "I", "M", "3", "1", "1", "", "1", "", "14"},
    {"4", "N", "P", "M", "1", "1", "1", "7", "2", "", ""},
    {"5", "R", "I", "M", "2", "1", "1", "7", "2", "", ""},
    {"6", "N", "P", "M", "3", "1", "1", "7", "2", "", ""},
    {"7", "R", "I", "M", "1", "1", "2", "7", "3", "", ""},
    {"8", "N", "P", "M", "2", "1", "2", "7", "3", "", ""},
    {"9", "R", "I", "M", "3", "1", "2", "7", "3", "", ""},
    {"10", "N", "P", "M", "1", "1", "2", "8", "4", "", ""},
    {"11", "N", "I", "M", "2", "1", "2", "8", "4", "", ""},
    {"12", "R", "P", "M", "3", "1", "2", "8", "4", "", ""},
    {"13", "N", "I", "M", "1", "2", "3", "8", "5", "", ""},
    {"14", "R", "P", "M", "2", "2", "3", "8", "5", "", ""},
    {"15", "N", "I", "M", "3", "2", "3", "8", "5", "", ""},
    {"16", "R", "P", "M", "1", "2", "3", "9", "6", "", ""},
    {"17", "N", "I", "M", "2", "2", "3", "9", "6", "", ""},
    {"18", "R", "P", "M", "3", "2", "3", "9", "6", "", ""},
    {"19", "R", "I", "Ps", "1", "2", "4", "9", "7", "", ""},
    {"20", "N", "P", "Ps", "2", "2", "4", "9", "7", "", ""},
    {"21", "R", "I", "Ps", "3", "2", "4", "9", "7", "", ""},
    {"22", "N", "P", "Ps", "1", "2", "4", "10", "8", "", ""},
    {"23", "R", "I", "Ps", "2", "2", "4", "10", "8", "", ""},
    {"24", "N", "P", "Ps", "3", "2", "4", "10", "8", "", ""},
    {"25", "R", "I", "Ps", "1", "3", "5", "10", "9", "", ""},
    {"26", "N", "P", "Ps", "2", "3", "5", "10", "9", "", ""},
    {"27", "R", "I", "Ps", "3", "3", "5", "10", "9", "", ""},
    {"28", "N", "P", "Ps", "1", "3", "5", "11", "10", "", ""},
    {"29", "N", "I", "Ps", "2", "3", "5", "11", "10", "", ""},
    {"30", "R", "P", "Ps", "3", "3", "5", "11", "10", "", ""},
    {"31", "N", "I", "Ps", "1", "3", "6", "11", "11", "", ""},
    {"32", "R", "P", "Ps", "2", "3", "6", "11", "11", "", ""},
    {"33", "N", "I", "Ps", "3", "3", "6", "11", "11", "", ""},
    {"34", "R", "P", "Ps", "1", "3", "6", "", "12", "", ""},
    {"35", "N", "I", "Ps", "2", "3", "6", "", "12", "", ""},
    {"36", "R", "P", "Ps", "3", "3", "6", "", "12", "", ""},
}};

/// The code of `number` (0 to 36) in `column` (1 to 11).
constexpr std::string_view code(int number, int column) {
    return Chancentabelle[static_cast<std::size_t>(number)][static_cast<std::size_t>(column - 1)];
}

/// A set of numbers, one bit per number.
using NumberSet = std::uint64_t;

inline constexpr NumberSet AllNumbers = (NumberSet{1} << NumberCount) - 1;

constexpr bool contains(NumberSet set, int number) {
    return (set >> number & 1U) != 0;
}

/// The numbers that carry exactly this code in one of the columns `first` to `last`.
constexpr NumberSet numbersWith(std::string_view wanted, int first, int last) {
    NumberSet set = 0;
    for (int number = 0; number < NumberCount; ++number)
        for (int column = first; column <= last; ++column)
            if (code(number, column) == wanted)
                set |= NumberSet{1} << number;
    return set;
}

/// The class that decides a number's colour on pad and tableau and in the grids.
enum class NumberClass { Zero, Rouge, Noir };

inline constexpr NumberSet RougeNumbers = numbersWith("R", NoirRouge, NoirRouge);

/// The class of `number`, 0 to 36.
constexpr NumberClass classOf(int number) {
    if (number == 0)
        return NumberClass::Zero;
    return contains(RougeNumbers, number) ? NumberClass::Rouge : NumberClass::Noir;
}

} // namespace chances
