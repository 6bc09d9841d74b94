// SPDX-License-Identifier: MIT
// Placing one coup in the sorted view.
#include "grids/placement.h"

#include "grids/families.h"

namespace M_Permanenz {

controls::RowPattern withMarks(controls::RowPattern row, int family, bool codes, int plein) {
    const grids::Family* known = grids::family(family);
    if (!known)
        return row;
    for (const grids::Rule& rule : known->rules) {
        const std::string_view code = chances::code(plein, rule.tableColumn);
        if (code != rule.code)
            continue;
        for (int column = rule.first; column <= rule.last; ++column)
            row.Cell(column, codes ? code : chances::code(plein, chances::Plein));
    }
    return row;
}

controls::RowPattern withoutMarks(controls::RowPattern row) {
    for (int column = grids::FirstMarkColumn; column <= grids::ColumnCount; ++column)
        row.Cell(column, "");
    return row;
}

void checkReadyRows(Program& program) {
    forms::MainForm& form = program.Frm_Main;
    forms::ReadyRows& ready = program.readyRows;
    const int family = form.xpCombo[0].ListIndex;
    const int mode = form.Check[0].Value;
    if (ready.family == family && ready.mode == mode
        && ready.viewGeneration == form.Grid[0].generation()
        && ready.storeGeneration == form.Grid[1].generation())
        return;
    ready = {};
    ready.family = family;
    ready.mode = mode;
    ready.viewGeneration = form.Grid[0].generation();
    ready.storeGeneration = form.Grid[1].generation();
}

void Sortierung_Coup(Program& program) {
    forms::MainForm& form = program.Frm_Main;
    controls::Grid& view = form.Grid[0];
    checkReadyRows(program);
    const controls::PatternId before = view.patternOf(form.Coup);
    forms::Transition& ready = program.readyRows.marks[static_cast<std::size_t>(form.Plein)];
    if (!ready.known || ready.before != before) {
        const auto after = view.intern(withMarks(
            view.pattern(before), form.xpCombo[0].ListIndex, form.Check[0].Value != 0, form.Plein));
        ready = {true, before, after};
    }
    view.setPattern(form.Coup, ready.after);
}

} // namespace M_Permanenz
