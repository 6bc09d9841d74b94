// SPDX-License-Identifier: MIT
// Marking numbers by how often they fell.
#include "stats/m_markierung.h"

#include "stats/m_tableau.h"
#include "stats/zahlentext.h"

#include <array>
#include <string_view>

namespace M_Markierung {

namespace {

constexpr std::array<std::string_view, 3> Titel{
    "", "Pleins genau markieren!", "Pleins mind. markieren!"};
constexpr std::string_view Frage = "Bitte geben Sie einen Wert von 0-1000 ein!";
constexpr std::string_view Fehler = "Ungültiger Wert! Bitte versuchen Sie es nochmal!";
constexpr int Hoechstwert = 1000;

} // namespace

void Abfragen(forms::Programm& programm, platform::Platform& platform, int box) {
    const std::string answer = platform.dialogs.prompt(Titel[static_cast<std::size_t>(box)], Frage);
    const auto value = stats::Ganzzahl16(stats::Zahl_am_Anfang(answer));
    if (!value || *value < 0 || *value > Hoechstwert) {
        platform.dialogs.message("Fehler", Fehler, platform::Icon::Critical);
        Loeschen(programm, box);
        return;
    }
    controls::TextBox& text = programm.Frm_Main.Text[static_cast<std::size_t>(box)];
    text.BackColor = controls::Blue;
    text.ForeColor = controls::White;
    text.Text = std::to_string(*value);
    M_Tableau::Tableau_Aktualisieren(programm);
}

void Loeschen(forms::Programm& programm, int box) {
    controls::TextBox& text = programm.Frm_Main.Text[static_cast<std::size_t>(box)];
    text.BackColor = controls::White;
    text.Text.clear();
    M_Tableau::Tableau_Aktualisieren(programm);
}

} // namespace M_Markierung
