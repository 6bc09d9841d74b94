// SPDX-License-Identifier: MIT
// A coup's way into the permanence.
#include "coup/m_permanenz.h"

#include "grids/sortierung_coup.h"
#include "stats/m_chancen.h"
#include "stats/m_tableau.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <type_traits>

namespace M_Permanenz {

namespace {

/// Columns of the store that hold the chances, and where they come from in the Chancentabelle.
constexpr int FirstChanceColumn = 3;
constexpr int LastChanceColumn = 10;
constexpr int StoreToTable = -1;

/// Coloured cells of a view row; the serial number in cell 1 never is.
constexpr int FirstColoredCell = 2;
constexpr int LastColoredCell = 16;

std::optional<controls::Color> zeilenfarbe(int zahl) {
    switch (chances::classOf(zahl)) {
    case chances::NumberClass::Rouge:
        return controls::Red;
    case chances::NumberClass::Zero:
        return controls::Green;
    case chances::NumberClass::Noir:
        break;
    }
    return std::nullopt;
}

controls::RowPattern sichtzeile(int zahl) {
    controls::RowPattern zeile;
    zeile.Serial(true);
    if (const auto farbe = zeilenfarbe(zahl))
        for (int column = FirstColoredCell; column <= LastColoredCell; ++column)
            zeile.CellColor(column, *farbe);
    return zeile;
}

controls::RowPattern speicherzeile(int zahl) {
    controls::RowPattern zeile;
    zeile.Serial(true);
    zeile.Cell(2, chances::code(zahl, chances::Plein));
    for (int column = FirstChanceColumn; column <= LastChanceColumn; ++column)
        zeile.Cell(column, chances::code(zahl, column + StoreToTable));
    if (const auto farbe = zeilenfarbe(zahl))
        zeile.RowColor(*farbe);
    return zeile;
}

/// The pattern of a number's row, made by `make` the first time and kept in `fertig` from then on.
template <class Make>
controls::PatternId muster(controls::Grid& grid, forms::Uebergang& fertig, int zahl, Make make) {
    if (!fertig.bekannt)
        fertig = {true, 0, grid.Intern(make(zahl))};
    return fertig.nachher;
}

/// The ready-made rows of a number, where both are known.
struct Zeilenpaar {
    bool bekannt = false;
    controls::PatternId sicht = 0;
    controls::PatternId speicher = 0;
};

std::array<Zeilenpaar, chances::NumberCount> zeilenpaare(Programm& programm) {
    Fertigzeilen_Pruefen(programm);
    const forms::Fertigzeilen& fertig = programm.Fertig;
    std::array<Zeilenpaar, chances::NumberCount> paare{};
    for (std::size_t z = 0; z < paare.size(); ++z) {
        const forms::Uebergang& bloss = fertig.sicht[z];
        const forms::Uebergang& marken = fertig.marken[z];
        paare[z] = {bloss.bekannt && fertig.speicher[z].bekannt && marken.bekannt
                && marken.vorher == bloss.nachher,
            marken.nachher, fertig.speicher[z].nachher};
    }
    return paare;
}

/// Takes in coups from the front of `zahlen` as long as their rows are ready-made and the grids'
/// chunks have room; gives how many.
std::size_t fertigeCoups(Programm& programm, std::span<const std::uint8_t> zahlen) {
    forms::MainForm& form = programm.Frm_Main;
    const auto paare = zeilenpaare(programm);
    std::array<std::int64_t, chances::NumberCount> anzahl{};
    const std::size_t count = form.Grid[0].Ids().visit([&](auto& sicht) {
        return form.Grid[1].Ids().visit([&](auto& speicher) {
            const auto sichtraum = sicht.spare();
            const auto speicherraum = speicher.spare();
            const std::size_t most
                = std::min({zahlen.size(), sichtraum.size(), speicherraum.size()});
            std::size_t i = 0;
            for (; i < most && paare[zahlen[i]].bekannt; ++i) {
                const Zeilenpaar& paar = paare[zahlen[i]];
                sichtraum[i]
                    = static_cast<std::remove_reference_t<decltype(sichtraum[i])>>(paar.sicht);
                speicherraum[i] = static_cast<std::remove_reference_t<decltype(speicherraum[i])>>(
                    paar.speicher);
                ++anzahl[zahlen[i]];
            }
            sicht.grow(static_cast<std::int64_t>(i));
            speicher.grow(static_cast<std::int64_t>(i));
            return i;
        });
    });
    if (count == 0)
        return 0;
    form.Coup += static_cast<std::int64_t>(count);
    form.Plein = zahlen[count - 1];
    form.Grid[1].Refresh();
    form.Grid[0].Refresh();
    M_Chancen::Anzahlen_Erhoehen(programm, anzahl);
    M_Tableau::Tableau_Aktualisieren(programm);
    return count;
}

} // namespace

void Coups_Aufnehmen(Programm& programm, std::span<const std::uint8_t> zahlen) {
    while (!zahlen.empty()) {
        zahlen = zahlen.subspan(fertigeCoups(programm, zahlen));
        // The next one's rows have to be made first, or a new chunk begun.
        if (!zahlen.empty()) {
            Coup_Aufnehmen(programm, zahlen.front());
            zahlen = zahlen.subspan(1);
        }
    }
}

void Coup_Aufnehmen(Programm& programm, int zahl) {
    forms::MainForm& form = programm.Frm_Main;
    const int vorige = form.Plein;
    form.Plein = zahl;
    ++form.Coup;
    try {
        Eingabe_Coup(programm);
    } catch (...) {
        // No half coup: memory may give out between the steps.
        for (controls::Grid& grid : std::span(form.Grid).first(2))
            if (grid.RowCount() == form.Coup)
                grid.RemoveRow(form.Coup);
        --form.Coup;
        form.Plein = vorige;
        throw;
    }
    M_Chancen::Chancen_Coup(programm);
    M_Tableau::Tableau_Aktualisieren(programm);
}

void Eingabe_Coup(Programm& programm) {
    Permanenz_Zeile(programm);
    Sortierung_Coup(programm);
}

void Permanenz_Zeile(Programm& programm) {
    forms::MainForm& form = programm.Frm_Main;
    const int zahl = form.Plein;
    const auto index = static_cast<std::size_t>(zahl);
    Fertigzeilen_Pruefen(programm);
    const auto sicht = muster(form.Grid[0], programm.Fertig.sicht[index], zahl, sichtzeile);
    const auto speicher
        = muster(form.Grid[1], programm.Fertig.speicher[index], zahl, speicherzeile);
    form.Grid[0].AddPattern(sicht);
    form.Grid[1].AddPattern(speicher);
    form.Grid[1].Refresh();
    form.Grid[0].Refresh();
}

} // namespace M_Permanenz
