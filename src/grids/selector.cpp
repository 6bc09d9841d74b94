// SPDX-License-Identifier: MIT
// The shape of the sorted view.
#include "grids/selector.h"

#include "grids/families.h"

namespace grids {

namespace {

constexpr int NoLines = 0;
constexpr int Lines = 3;

} // namespace

void applyFamily(forms::Program& program) {
    forms::MainForm& form = program.Frm_Main;
    controls::Grid& view = form.Grid[0];
    const grids::Family* family = grids::family(form.xpCombo[0].ListIndex);
    if (!family)
        return;
    view.Width = form.Check[1].Value == 0 ? family->width : family->widthWithLines;
    view.Column(1).Caption = family->serialCaption;
    if (family->setsSerialWidth)
        view.Column(1).Width = grids::SerialWidth;
    for (const grids::Captions& captions : family->captions)
        for (int column = captions.first; column <= captions.last; ++column) {
            std::string caption(captions.text);
            if (captions.number != 0)
                caption += std::to_string(captions.number + column - captions.first);
            view.Column(column).Caption = caption;
            view.Column(column).Width = grids::MarkWidth;
        }
    view.Refresh();
}

void toggleLines(forms::Program& program) {
    forms::MainForm& form = program.Frm_Main;
    controls::Grid& view = form.Grid[0];
    const grids::Family* family = grids::family(form.xpCombo[0].ListIndex);
    if (!family)
        return;
    const bool on = view.GridLines == NoLines;
    view.GridLines = on ? Lines : NoLines;
    view.Width = on ? family->widthWithLines : family->width;
    view.Refresh();
}

} // namespace grids
