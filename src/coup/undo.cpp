// SPDX-License-Identifier: MIT
// Going back.
#include "coup/undo.h"

#include "stats/tableau.h"

#include <string>

namespace M_Eingabe {

void Chancen_Reset(Program& program) {
    forms::MainForm& form = program.Frm_Main;
    program.counters.Anz_Plein.fill(0);
    program.counters.changed = chances::AllNumbers;
    form.Grid[0].Clear();
    form.Grid[1].Clear();
    form.Coup = 0;
    M_Tableau::Tableau_Aktualisieren(program);
}

void Rueckgaengig(Program& program) {
    forms::MainForm& form = program.Frm_Main;
    if (form.Coup >= 1) {
        const int z = form.Plein;
        --program.counters.Anz_Plein[static_cast<std::size_t>(z)];
        program.counters.changed |= chances::NumberSet{1} << z;
        form.Grid[0].RemoveRow(form.Coup);
        form.Grid[1].RemoveRow(form.Coup);
        --form.Coup;
        if (form.Coup > 0)
            form.Plein = std::stoi(form.Grid[1].Row(form.Coup).Cell(2));
    }
    M_Tableau::Tableau_Aktualisieren(program);
}

} // namespace M_Eingabe
