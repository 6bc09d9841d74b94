// SPDX-License-Identifier: MIT
// How often every chance and number has fallen. Only the numbers are counted; a chance's count is
// the sum over its numbers, worked out when it is read.
#include "stats/counters.h"

#include "stats/counted_chances.h"

#include <algorithm>
#include <cassert>

namespace M_Chancen {

namespace {

using forms::plan::Name;

const stats::CountedChance& countedChance(Name label, int index) {
    const auto* const found = std::find_if(stats::CountedChances.begin(),
        stats::CountedChances.end(), [&](const stats::CountedChance& counted) {
            return counted.label == label && counted.index == index;
        });
    assert(found != stats::CountedChances.end());
    return *found;
}

std::int64_t sumOf(const Program& program, const stats::CountedChance& counted) {
    std::int64_t sum = 0;
    for (int number = 0; number < chances::NumberCount; ++number)
        if (chances::contains(counted.numbers, number))
            sum += Anz_Plein(program, number);
    return sum;
}

std::int64_t sumOf(const Program& program, Name label, int index = 0) {
    return sumOf(program, countedChance(label, index));
}

} // namespace

void Chancen_Coup(Program& program) {
    Chancen_Zaehlen(program);
}

void Chancen_Zaehlen(Program& program) {
    count(program, program.Frm_Main.Plein, 1);
}

void count(Program& program, int number, std::int64_t coups) {
    program.counters.Anz_Plein[static_cast<std::size_t>(number)] += coups;
}

void countAll(Program& program, std::span<const std::uint8_t> numbers) {
    std::array<std::int64_t, chances::NumberCount> counts{};
    for (const std::uint8_t number : numbers)
        ++counts[number];
    for (int number = 0; number < chances::NumberCount; ++number)
        count(program, number, counts[static_cast<std::size_t>(number)]);
}

void clear(Program& program) {
    program.counters = {};
}

std::int64_t Anz_Noir(const Program& program) {
    return sumOf(program, Name::XPLabel_N);
}

std::int64_t Anz_Rouge(const Program& program) {
    return sumOf(program, Name::XPLabel_R);
}

std::int64_t Anz_Pair(const Program& program) {
    return sumOf(program, Name::XPLabel_P);
}

std::int64_t Anz_Impair(const Program& program) {
    return sumOf(program, Name::XPLabel_I);
}

std::int64_t Anz_Passe(const Program& program) {
    return sumOf(program, Name::XPLabel_Ps);
}

std::int64_t Anz_Manque(const Program& program) {
    return sumOf(program, Name::XPLabel_M);
}

std::int64_t Anz_Kolonne(const Program& program, int kolonne) {
    return sumOf(program, Name::XPLabel_K, kolonne);
}

std::int64_t Anz_Dutzend(const Program& program, int dutzend) {
    return sumOf(program, Name::XPLabel_D, dutzend);
}

std::int64_t Anz_TVS(const Program& program, int transversale) {
    return sumOf(program, Name::XPLabel_TVS, transversale);
}

std::int64_t Anz_TVP(const Program& program, int transversale) {
    return sumOf(program, Name::XPLabel_TVP, transversale);
}

std::int64_t Anz_Plein(const Program& program, int number) {
    return program.counters.Anz_Plein[static_cast<std::size_t>(number)];
}

int Anz_Gefallen(const Program& program) {
    const auto& counts = program.counters.Anz_Plein;
    return static_cast<int>(
        std::count_if(counts.begin(), counts.end(), [](std::int64_t count) { return count > 0; }));
}

std::string captionOf(const Program& program, Name name, int index) {
    if (name == Name::XPLabel_Plein)
        return std::to_string(Anz_Plein(program, index));
    if (name == Name::Label && index == 4)
        return "gefallene Pleins: " + std::to_string(Anz_Gefallen(program)) + " / "
            + std::to_string(chances::NumberCount) + ' ';
    const stats::CountedChance& counted = countedChance(name, index);
    const std::string number = counted.index == 0 ? "" : std::to_string(counted.index) + ".";
    return " " + number + std::string(counted.name) + "= "
        + std::to_string(sumOf(program, counted));
}

controls::Color badgeColor(const Program& program, int number) {
    return Anz_Plein(program, number) > 0 ? controls::White : controls::GreyText;
}

} // namespace M_Chancen
