// SPDX-License-Identifier: MIT
// The colours of the number pad and of the tableau.
#include "stats/tableau.h"

#include "stats/counters.h"
#include "stats/leading_number.h"

#include <bit>

namespace M_Tableau {

namespace {

using chances::NumberSet;

/// The numbers of `asked` that the two boxes mark.
NumberSet markedNumbers(const Program& program, NumberSet asked) {
    const forms::TableauPicture& picture = program.Frm_Main.Tableau;
    NumberSet marked = 0;
    for (NumberSet left = asked; left != 0; left &= left - 1) {
        const int number = std::countr_zero(left);
        const auto count = static_cast<double>(M_Chancen::Anz_Plein(program, number));
        if ((!picture.exact.empty() && count == picture.exactValue)
            || (!picture.atLeast.empty() && count >= picture.atLeastValue))
            marked |= NumberSet{1} << number;
    }
    return marked;
}

controls::CellColors colors(int number, bool highlighted) {
    const controls::Color ofClass = classColor(number);
    const controls::Color text = highlighted ? controls::White : ofClass;
    const controls::Color back = highlighted ? ofClass : controls::Cloth;
    return {text, back, text, back};
}

} // namespace

void Tableau_Aktualisieren(Program& program) {
    forms::MainForm& form = program.Frm_Main;
    forms::TableauPicture& picture = form.Tableau;
    const std::string& exact = form.Text[1].Text;
    const std::string& atLeast = form.Text[2].Text;

    // Under the same boxes only a number whose count has changed can gain or lose its mark. That
    // keeps a long run with marks as quick as one without.
    NumberSet asked = program.counters.changed;
    if (exact != picture.exact || atLeast != picture.atLeast) {
        asked = chances::AllNumbers;
        picture.exact = exact;
        picture.atLeast = atLeast;
        picture.exactValue = stats::leadingNumber(exact);
        picture.atLeastValue = stats::leadingNumber(atLeast);
    }
    if (exact.empty() && atLeast.empty())
        picture.marked = 0;
    else
        picture.marked = (picture.marked & ~asked) | markedNumbers(program, asked);
    program.counters.changed = 0;
    picture.last = form.Coup > 0 ? form.Plein : -1;
}

controls::CellColors padColors(const Program& program, int number) {
    return colors(number, program.Frm_Main.Tableau.last == number);
}

controls::CellColors tableauColors(const Program& program, int number) {
    return colors(number, chances::contains(program.Frm_Main.Tableau.marked, number));
}

controls::Color classColor(int number) {
    switch (chances::classOf(number)) {
    case chances::NumberClass::Zero:
        return controls::Green;
    case chances::NumberClass::Rouge:
        return controls::Red;
    case chances::NumberClass::Noir:
        break;
    }
    return controls::Black;
}

} // namespace M_Tableau
