// SPDX-License-Identifier: MIT
// The colours of the number pad and of the tableau.
#include "stats/m_tableau.h"

#include "stats/m_chancen.h"
#include "stats/zahlentext.h"

#include <bit>

namespace M_Tableau {

namespace {

using chances::NumberSet;

/// The numbers of `asked` that the two boxes mark.
NumberSet markierte(const Programm& programm, NumberSet asked) {
    const forms::Tableaubild& bild = programm.Frm_Main.Tableau;
    NumberSet marked = 0;
    for (NumberSet left = asked; left != 0; left &= left - 1) {
        const int number = std::countr_zero(left);
        const auto count = static_cast<double>(M_Chancen::Anz_Plein(programm, number));
        if ((!bild.genau.empty() && count == bild.genauWert)
            || (!bild.mindestens.empty() && count >= bild.mindestWert))
            marked |= NumberSet{1} << number;
    }
    return marked;
}

controls::CellColors farben(int number, bool hervorgehoben) {
    const controls::Color klasse = Klassenfarbe(number);
    const controls::Color text = hervorgehoben ? controls::White : klasse;
    const controls::Color grund = hervorgehoben ? klasse : controls::Cloth;
    return {text, grund, text, grund};
}

} // namespace

void Tableau_Aktualisieren(Programm& programm) {
    forms::MainForm& form = programm.Frm_Main;
    forms::Tableaubild& bild = form.Tableau;
    const std::string& genau = form.Text[1].Text;
    const std::string& mindestens = form.Text[2].Text;

    // Under the same boxes only a number whose count has changed can gain or lose its mark. That
    // keeps a long run with marks as quick as one without.
    NumberSet asked = programm.Chancen.geaendert;
    if (genau != bild.genau || mindestens != bild.mindestens) {
        asked = chances::AllNumbers;
        bild.genau = genau;
        bild.mindestens = mindestens;
        bild.genauWert = stats::Zahl_am_Anfang(genau);
        bild.mindestWert = stats::Zahl_am_Anfang(mindestens);
    }
    if (genau.empty() && mindestens.empty())
        bild.markiert = 0;
    else
        bild.markiert = (bild.markiert & ~asked) | markierte(programm, asked);
    programm.Chancen.geaendert = 0;
    bild.letzte = form.Coup > 0 ? form.Plein : -1;
}

controls::CellColors Farben_Pad(const Programm& programm, int number) {
    return farben(number, programm.Frm_Main.Tableau.letzte == number);
}

controls::CellColors Farben_Tableauzahl(const Programm& programm, int number) {
    return farben(number, chances::contains(programm.Frm_Main.Tableau.markiert, number));
}

controls::Color Klassenfarbe(int number) {
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
