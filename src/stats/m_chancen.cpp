// SPDX-License-Identifier: MIT
// How often every chance and number has fallen. Only the numbers are counted; a chance's count is
// the sum over its numbers, worked out when it is read.
#include "stats/m_chancen.h"

#include "stats/zaehlwerke.h"

#include <algorithm>

namespace M_Chancen {

namespace {

using forms::plan::Name;

const stats::Zaehlwerk& zaehlwerk(Name label, int index) {
    return *std::find_if(stats::Zaehlwerke.begin(), stats::Zaehlwerke.end(),
        [&](const stats::Zaehlwerk& werk) { return werk.label == label && werk.index == index; });
}

std::int64_t anzahl(const Programm& programm, const stats::Zaehlwerk& werk) {
    std::int64_t sum = 0;
    for (int number = 0; number < chances::NumberCount; ++number)
        if (chances::contains(werk.zahlen, number))
            sum += Anz_Plein(programm, number);
    return sum;
}

std::int64_t anzahl(const Programm& programm, Name label, int index = 0) {
    return anzahl(programm, zaehlwerk(label, index));
}

} // namespace

void Chancen_Coup(Programm& programm) {
    Chancen_Zaehlen(programm);
}

void Chancen_Zaehlen(Programm& programm) {
    const int z = programm.Frm_Main.Plein;
    ++programm.Chancen.Anz_Plein[static_cast<std::size_t>(z)];
    programm.Chancen.geaendert |= chances::NumberSet{1} << z;
}

void Anzahlen_Erhoehen(
    Programm& programm, const std::array<std::int64_t, chances::NumberCount>& anzahl) {
    for (std::size_t z = 0; z < anzahl.size(); ++z) {
        programm.Chancen.Anz_Plein[z] += anzahl[z];
        if (anzahl[z] != 0)
            programm.Chancen.geaendert |= chances::NumberSet{1} << z;
    }
}

std::int64_t Anz_Noir(const Programm& programm) {
    return anzahl(programm, Name::XPLabel_N);
}

std::int64_t Anz_Rouge(const Programm& programm) {
    return anzahl(programm, Name::XPLabel_R);
}

std::int64_t Anz_Pair(const Programm& programm) {
    return anzahl(programm, Name::XPLabel_P);
}

std::int64_t Anz_Impair(const Programm& programm) {
    return anzahl(programm, Name::XPLabel_I);
}

std::int64_t Anz_Passe(const Programm& programm) {
    return anzahl(programm, Name::XPLabel_Ps);
}

std::int64_t Anz_Manque(const Programm& programm) {
    return anzahl(programm, Name::XPLabel_M);
}

std::int64_t Anz_Kolonne(const Programm& programm, int kolonne) {
    return anzahl(programm, Name::XPLabel_K, kolonne);
}

std::int64_t Anz_Dutzend(const Programm& programm, int dutzend) {
    return anzahl(programm, Name::XPLabel_D, dutzend);
}

std::int64_t Anz_TVS(const Programm& programm, int transversale) {
    return anzahl(programm, Name::XPLabel_TVS, transversale);
}

std::int64_t Anz_TVP(const Programm& programm, int transversale) {
    return anzahl(programm, Name::XPLabel_TVP, transversale);
}

std::int64_t Anz_Plein(const Programm& programm, int number) {
    return programm.Chancen.Anz_Plein[static_cast<std::size_t>(number)];
}

int Anz_Gefallen(const Programm& programm) {
    const auto& counts = programm.Chancen.Anz_Plein;
    return static_cast<int>(
        std::count_if(counts.begin(), counts.end(), [](std::int64_t count) { return count > 0; }));
}

std::string Beschriftung(const Programm& programm, Name name, int index) {
    if (name == Name::XPLabel_Plein)
        return std::to_string(Anz_Plein(programm, index));
    if (name == Name::Label)
        return "gefallene Pleins: " + std::to_string(Anz_Gefallen(programm)) + " / 37 ";
    const stats::Zaehlwerk& werk = zaehlwerk(name, index);
    const std::string nummer = werk.index == 0 ? "" : std::to_string(werk.index) + ".";
    return " " + nummer + std::string(werk.name) + "= " + std::to_string(anzahl(programm, werk));
}

controls::Color Farbe_Plein(const Programm& programm, int number) {
    return Anz_Plein(programm, number) > 0 ? controls::White : controls::GreyText;
}

} // namespace M_Chancen
