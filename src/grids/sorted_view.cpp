// SPDX-License-Identifier: MIT
// The sorted view by the rules of the selected family.
#include "grids/sorted_view.h"

#include "grids/families.h"
#include "progress/long_run.h"

#include <algorithm>
#include <new>

namespace grids {

namespace {

constexpr int NoLines = 0;
constexpr int Lines = 3;

} // namespace

void applyFamily(forms::Program& program) {
    forms::MainForm& form = program.Frm_Main;
    controls::Grid& view = form.Grid[0];
    const Family* family = grids::family(form.xpCombo[0].ListIndex);
    if (!family)
        return;
    view.Width = form.Check[1].Value == 0 ? family->width : family->widthWithLines;
    view.Column(1).Caption = family->serialCaption;
    if (family->setsSerialWidth)
        view.Column(1).Width = SerialWidth;
    for (const Captions& captions : family->captions)
        for (int column = captions.first; column <= captions.last; ++column) {
            std::string caption(captions.text);
            if (captions.firstNumber)
                caption += std::to_string(*captions.firstNumber + column - captions.first);
            view.Column(column).Caption = caption;
            view.Column(column).Width = MarkWidth;
        }
    view.Refresh();
}

void toggleLines(forms::Program& program) {
    forms::MainForm& form = program.Frm_Main;
    controls::Grid& view = form.Grid[0];
    const Family* family = grids::family(form.xpCombo[0].ListIndex);
    if (!family)
        return;
    const bool on = view.GridLines == NoLines;
    view.GridLines = on ? Lines : NoLines;
    view.Width = on ? family->widthWithLines : family->width;
    view.Refresh();
}

} // namespace grids

namespace M_Permanenz {

namespace {

using controls::PatternId;
using controls::RowPattern;

/// Writes the marks of a number into a row: every rule of the family is tried, and each match
/// writes the number, or in the mode of codes the code that matched.
RowPattern withMarks(RowPattern row, const forms::MainForm& form, int number) {
    const grids::Family* family = grids::family(form.xpCombo[0].ListIndex);
    const int mode = form.Check[0].Value;
    for (const grids::Rule& rule : family ? family->rules : std::span<const grids::Rule>()) {
        const std::string_view code = chances::code(number, rule.tableColumn);
        if (code != rule.code)
            continue;
        for (int column = rule.first; column <= rule.last; ++column)
            row.Cell(column, mode != 0 ? code : chances::code(number, chances::Plein));
    }
    return row;
}

/// Empties the mark columns of a row; its serial number and its colours stay.
RowPattern withoutMarks(RowPattern row) {
    for (int column = grids::FirstMarkColumn; column <= grids::ViewColumnCount; ++column)
        row.Cell(column, "");
    return row;
}

/// Re-sorts one row and remembers what became of it.
void resortRow(Program& program, std::int64_t row) {
    forms::MainForm& form = program.Frm_Main;
    controls::Grid& view = form.Grid[0];
    const PatternId before = view.patternOf(row);
    const PatternId after = view.intern(
        withMarks(withoutMarks(view.pattern(before)), form, forms::numberOf(form, row)));
    view.setPattern(row, after);
    forms::currentRows(program).learnResort(form.Grid[1].patternOf(row), before, after);
}

/// Re-sorts the rows `first` to `last`. If memory fails for a row, it keeps its marks.
void resortRows(Program& program, std::int64_t first, std::int64_t last) {
    forms::MainForm& form = program.Frm_Main;
    for (std::int64_t row = first; row <= last;) {
        row = forms::currentRows(program).resort(form.Grid[0], form.Grid[1], row, last);
        if (row > last)
            break;
        try {
            resortRow(program, row);
        } catch (const std::bad_alloc&) { }
        ++row;
    }
    form.Coup = last;
    form.Plein = forms::numberOf(form, last);
}

} // namespace

void Sortierung_Coup(Program& program) {
    forms::MainForm& form = program.Frm_Main;
    controls::Grid& view = form.Grid[0];
    const PatternId before = view.patternOf(form.Coup);
    const PatternId after
        = forms::currentRows(program).after(forms::ReadyRows::Step::Marks, form.Plein, before,
            [&] { return view.intern(withMarks(view.pattern(before), form, form.Plein)); });
    view.setPattern(form.Coup, after);
}

void Sortierung_Neu(Program& program, platform::Platform& platform) {
    controls::Grid& view = program.Frm_Main.Grid[0];
    const std::int64_t total = program.Frm_Main.Grid[1].RowCount();
    progress::show(program, total, false);
    const std::int64_t rows = view.RowCount();
    progress::Pace pace(platform);
    for (std::int64_t first = 1; first <= rows; first += progress::BlockSize) {
        const std::int64_t last = std::min(first + progress::BlockSize - 1, rows);
        resortRows(program, first, last);
        view.Refresh();
        progress::report(program, last, total, last);
        pace.paint();
    }
    progress::Form_Unload(program);
}

} // namespace M_Permanenz
