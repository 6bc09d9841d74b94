// SPDX-License-Identifier: MIT
// All state of the program as one plain value: the forms with their controls, and what lies
// beside them. A fresh value is a program that has just been started.
#pragma once

#include "chances/chancentabelle.h"
#include "controls/grid.h"
#include "controls/models.h"
#include "forms/ready_rows.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace forms {

/// Stands for "no number yet" in Plein, from start-up to the first coup.
inline constexpr int NoNumber = 37;

/// How often each number has fallen. Everything else that is counted follows from this.
struct Counters {
    std::array<std::int64_t, chances::NumberCount> Anz_Plein{};
};

/// What stands out on pad and tableau, as settled last.
struct TableauPicture {
    chances::NumberSet marked = 0; ///< number cells that stand out by how often they fell
    int last = -1; ///< the pad cell of the last number, -1 for none
};

/// The main window.
struct MainForm {
    int Plein = NoNumber; ///< number of the current coup, 0 to 36, or NoNumber
    std::int64_t Coup = 0; ///< coups in the permanence; the row of the coup being processed

    bool loaded = false;
    bool Visible = false;
    bool Enabled = true;
    std::uint64_t focusRequests = 0;
    bool inHandler = false; ///< a handler of this form is at work; no other one of it may start
    bool closeRequested = false; ///< closing was asked for while a handler was at work

    std::array<controls::Grid, 4> Grid; ///< 0 sorted view, 1 permanence store, 3 Chancentabelle
    std::array<controls::Combo, 1> xpCombo;
    std::array<controls::CheckBox, 2> Check;
    std::array<controls::TextBox, 3> Text;
    TableauPicture Tableau;
    std::string FileName; ///< of the one file dialog: where it starts the next time
};

/// The status line of a long run, joined to a text when it is read.
struct StatusLine {
    std::int64_t coup = 0; ///< first figure
    std::int64_t total = 0; ///< total of the run
    std::int64_t step = 0; ///< step of the run, from 1; 0 while the line is empty
};

/// The progress dialog.
struct ProgressForm {
    bool Visible = false;
    std::uint8_t Abbruch = 0; ///< 1: the user has asked to stop
    StatusLine Lbl_Status;
    controls::ProgressBar xpProgress;
    controls::Button xpButton;
};

/// The splash.
struct StartForm {
    bool Visible = false;
    bool timer1Enabled = true;
    std::int16_t Ticks = 0;
};

/// The info dialog.
struct InfoForm {
    bool loaded = false;
    bool Visible = false;
    bool inHandler = false; ///< a handler is at work; no other one may start
    std::uint64_t focusRequests = 0;
    controls::Label lblVersion;
};

/// One cell of the rippling picture; all in pixels.
struct WaterCell {
    float BasisX = 0;
    float BasisY = 0;
    float VersatzX = 0;
    float VersatzY = 0;
};

/// The cells of the rippling picture, columns and rows from 0 to the sizes' last index.
struct WaterField {
    int columns = 0;
    int rows = 0;
    std::vector<WaterCell> cells; ///< column by column

    WaterCell& operator()(int column, int row) {
        return cells[static_cast<std::size_t>(column) * static_cast<std::size_t>(rows)
            + static_cast<std::size_t>(row)];
    }
};

struct Program {
    MainForm Frm_Main;
    ProgressForm Frm_Progressbar;
    StartForm Frm_Start;
    InfoForm Frm_Info;
    Counters counters;
    WaterField Wasser_Feld;
    ReadyRows readyRows;
    std::uint64_t random = 0; ///< state of the random generator
    std::string version; ///< of the program file: major.minor.revision
};

/// The number of a coup, read from its row of the store.
inline int numberOf(const MainForm& form, std::int64_t row) {
    return std::stoi(form.Grid[1].Row(row).Cell(2));
}

/// The ready-made rows, less what no longer fits the grids, the family or the mode.
inline ReadyRows& currentRows(Program& program) {
    const MainForm& form = program.Frm_Main;
    program.readyRows.adopt(
        form.Grid[0], form.Grid[1], form.xpCombo[0].ListIndex, form.Check[0].Value);
    return program.readyRows;
}

} // namespace forms
