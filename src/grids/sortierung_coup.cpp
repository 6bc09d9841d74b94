// SPDX-License-Identifier: MIT
// Placing one coup in the sorted view.
#include "grids/sortierung_coup.h"

#include "grids/familientabelle.h"

namespace M_Permanenz {

controls::RowPattern Mit_Marken(controls::RowPattern zeile, int familie, bool einfach, int plein) {
    const grids::Family* family = grids::familie(familie);
    if (!family)
        return zeile;
    for (const grids::Rule& rule : family->rules) {
        const std::string_view code = chances::code(plein, rule.tableColumn);
        if (code != rule.code)
            continue;
        for (int column = rule.first; column <= rule.last; ++column)
            zeile.Cell(column, einfach ? code : chances::code(plein, chances::Plein));
    }
    return zeile;
}

controls::RowPattern Ohne_Marken(controls::RowPattern zeile) {
    for (int column = grids::FirstMarkColumn; column <= grids::ColumnCount; ++column)
        zeile.Cell(column, "");
    return zeile;
}

void Fertigzeilen_Pruefen(Programm& programm) {
    forms::MainForm& form = programm.Frm_Main;
    forms::Fertigzeilen& fertig = programm.Fertig;
    const int familie = form.xpCombo[0].ListIndex;
    const int modus = form.Check[0].Value;
    if (fertig.familie == familie && fertig.modus == modus
        && fertig.sichtStand == form.Grid[0].Generation()
        && fertig.speicherStand == form.Grid[1].Generation())
        return;
    fertig = {};
    fertig.familie = familie;
    fertig.modus = modus;
    fertig.sichtStand = form.Grid[0].Generation();
    fertig.speicherStand = form.Grid[1].Generation();
}

void Sortierung_Coup(Programm& programm) {
    forms::MainForm& form = programm.Frm_Main;
    controls::Grid& sicht = form.Grid[0];
    Fertigzeilen_Pruefen(programm);
    const controls::PatternId vorher = sicht.PatternOf(form.Coup);
    forms::Uebergang& fertig = programm.Fertig.marken[static_cast<std::size_t>(form.Plein)];
    if (!fertig.bekannt || fertig.vorher != vorher) {
        const auto nachher = sicht.Intern(Mit_Marken(sicht.Pattern(vorher),
            form.xpCombo[0].ListIndex, form.Check[0].Value != 0, form.Plein));
        fertig = {true, vorher, nachher};
    }
    sicht.SetPattern(form.Coup, fertig.nachher);
}

} // namespace M_Permanenz
