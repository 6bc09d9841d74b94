// SPDX-License-Identifier: MIT
// The shape of the sorted view.
#include "grids/auswahl.h"

#include "grids/familientabelle.h"

namespace Auswahl {

namespace {

constexpr int NoLines = 0;
constexpr int Lines = 3;

} // namespace

void Familie_Anwenden(forms::Programm& programm) {
    forms::MainForm& form = programm.Frm_Main;
    controls::Grid& sicht = form.Grid[0];
    const grids::Family* family = grids::familie(form.xpCombo[0].ListIndex);
    if (!family)
        return;
    sicht.Width = form.Check[1].Value == 0 ? family->width : family->widthWithLines;
    sicht.Column(1).Caption = family->serialCaption;
    if (family->setsSerialWidth)
        sicht.Column(1).Width = grids::SerialWidth;
    for (const grids::Captions& captions : family->captions)
        for (int column = captions.first; column <= captions.last; ++column) {
            std::string caption(captions.text);
            if (captions.number != 0)
                caption += std::to_string(captions.number + column - captions.first);
            sicht.Column(column).Caption = caption;
            sicht.Column(column).Width = grids::MarkWidth;
        }
    sicht.Refresh();
}

void Gitter_Umschalten(forms::Programm& programm) {
    forms::MainForm& form = programm.Frm_Main;
    controls::Grid& sicht = form.Grid[0];
    const grids::Family* family = grids::familie(form.xpCombo[0].ListIndex);
    if (!family)
        return;
    const bool on = sicht.GridLines == NoLines;
    sicht.GridLines = on ? Lines : NoLines;
    sicht.Width = on ? family->widthWithLines : family->width;
    sicht.Refresh();
}

} // namespace Auswahl
