// SPDX-License-Identifier: MIT
// Marking numbers by how often they fell.
#include "stats/marking.h"

#include "stats/leading_number.h"
#include "stats/tableau.h"

#include <array>
#include <string_view>

namespace stats {

namespace {

constexpr std::array<std::string_view, 3> Title{
    "", "Pleins genau markieren!", "Pleins mind. markieren!"};
constexpr std::string_view Question = "Bitte geben Sie einen Wert von 0-1000 ein!";
constexpr std::string_view InvalidValue = "Ungültiger Wert! Bitte versuchen Sie es nochmal!";
constexpr int HighestMark = 1000;

} // namespace

void askForMark(forms::Program& program, platform::Platform& platform, int box) {
    const std::string answer
        = platform.dialogs.prompt(Title[static_cast<std::size_t>(box)], Question);
    const auto value = stats::wholeNumber16(stats::leadingNumber(answer));
    if (!value || *value < 0 || *value > HighestMark) {
        platform.dialogs.message("Fehler", InvalidValue, platform::Icon::Critical);
        clearMark(program, box);
        return;
    }
    controls::TextBox& text = program.Frm_Main.Text[static_cast<std::size_t>(box)];
    text.BackColor = controls::Blue;
    text.ForeColor = controls::White;
    text.Text = std::to_string(*value);
    M_Tableau::Tableau_Aktualisieren(program);
}

void clearMark(forms::Program& program, int box) {
    controls::TextBox& text = program.Frm_Main.Text[static_cast<std::size_t>(box)];
    text.BackColor = controls::White;
    text.Text.clear();
    M_Tableau::Tableau_Aktualisieren(program);
}

} // namespace stats
