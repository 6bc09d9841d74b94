// SPDX-License-Identifier: MIT
// Going back.
#include "coup/m_eingabe.h"

#include "stats/m_tableau.h"

#include <string>

namespace M_Eingabe {

void Chancen_Reset(Programm& programm) {
    forms::MainForm& form = programm.Frm_Main;
    programm.Chancen.Anz_Plein.fill(0);
    programm.Chancen.geaendert = chances::AllNumbers;
    form.Grid[0].Clear();
    form.Grid[1].Clear();
    form.Coup = 0;
    M_Tableau::Tableau_Aktualisieren(programm);
}

void Rueckgaengig(Programm& programm) {
    forms::MainForm& form = programm.Frm_Main;
    if (form.Coup >= 1) {
        const int z = form.Plein;
        --programm.Chancen.Anz_Plein[static_cast<std::size_t>(z)];
        programm.Chancen.geaendert |= chances::NumberSet{1} << z;
        form.Grid[0].RemoveRow(form.Coup);
        form.Grid[1].RemoveRow(form.Coup);
        --form.Coup;
        if (form.Coup > 0)
            form.Plein = std::stoi(form.Grid[1].Row(form.Coup).Cell(2));
    }
    M_Tableau::Tableau_Aktualisieren(programm);
}

} // namespace M_Eingabe
