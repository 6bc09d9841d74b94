// SPDX-License-Identifier: MIT
// Reset and undo.
#include "coup/coups.h"

#include "stats/counters.h"
#include "stats/tableau.h"

namespace M_Eingabe {

void Chancen_Reset(Program& program) {
    forms::MainForm& form = program.Frm_Main;
    M_Chancen::clear(program);
    form.Grid[0].Clear();
    form.Grid[1].Clear();
    form.Coup = 0;
    M_Tableau::Tableau_Aktualisieren(program);
}

void Rueckgaengig(Program& program) {
    forms::MainForm& form = program.Frm_Main;
    if (form.Coup >= 1) {
        M_Chancen::count(program, form.Plein, -1);
        form.Grid[0].RemoveRow(form.Coup);
        form.Grid[1].RemoveRow(form.Coup);
        --form.Coup;
        if (form.Coup > 0)
            form.Plein = forms::numberOf(form, form.Coup);
    }
    M_Tableau::Tableau_Aktualisieren(program);
}

} // namespace M_Eingabe
