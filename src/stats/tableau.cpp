// SPDX-License-Identifier: MIT
// The colours of the number pad and of the tableau, and the two boxes that mark numbers.
#include "stats/tableau.h"

#include "stats/counters.h"
#include "stats/leading_number.h"

#include <array>
#include <string_view>

namespace M_Tableau {

namespace {

/// The numbers that the two boxes mark.
chances::NumberSet markedNumbers(const Program& program) {
    const std::string& exact = program.Frm_Main.Text[1].Text;
    const std::string& atLeast = program.Frm_Main.Text[2].Text;
    chances::NumberSet marked = 0;
    if (exact.empty() && atLeast.empty())
        return marked;
    const double exactCount = stats::leadingNumber(exact);
    const double leastCount = stats::leadingNumber(atLeast);
    for (int number = 0; number < chances::NumberCount; ++number) {
        const auto count = static_cast<double>(M_Chancen::Anz_Plein(program, number));
        if ((!exact.empty() && count == exactCount) || (!atLeast.empty() && count >= leastCount))
            marked |= chances::NumberSet{1} << number;
    }
    return marked;
}

controls::CellColors colors(int number, bool highlighted) {
    const controls::Color own = classColor(number);
    const controls::Color text = highlighted ? controls::White : own;
    const controls::Color back = highlighted ? own : controls::Cloth;
    return {text, back, text, back};
}

} // namespace

void Tableau_Aktualisieren(Program& program) {
    forms::MainForm& form = program.Frm_Main;
    form.Tableau = {markedNumbers(program), form.Coup > 0 ? form.Plein : -1};
}

controls::CellColors padColors(const Program& program, int number) {
    return colors(number, program.Frm_Main.Tableau.last == number);
}

controls::CellColors tableauColors(const Program& program, int number) {
    return colors(number, marked(program, number));
}

bool marked(const Program& program, int number) {
    return chances::contains(program.Frm_Main.Tableau.marked, number);
}

std::optional<controls::Color> rowColor(int number) {
    switch (chances::classOf(number)) {
    case chances::NumberClass::Zero:
        return controls::Green;
    case chances::NumberClass::Rouge:
        return controls::Red;
    case chances::NumberClass::Noir:
        break;
    }
    return std::nullopt;
}

controls::Color classColor(int number) {
    return rowColor(number).value_or(controls::Black);
}

} // namespace M_Tableau

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
