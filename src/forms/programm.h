// SPDX-License-Identifier: MIT
// All state of the program as one plain value: the forms with their controls, and what lies
// beside them. A fresh value is a program that has just been started.
#pragma once

#include "chances/chancentabelle.h"
#include "controls/grid.h"
#include "controls/models.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace forms {

/// Stands for "no number yet" in Plein, from start-up to the first coup.
inline constexpr int NoNumber = 37;

/// How often each number has fallen. Everything else that is counted follows from this.
struct Zaehler {
    std::array<std::int64_t, chances::NumberCount> Anz_Plein{};
    /// Numbers whose count has changed since the tableau was painted last.
    chances::NumberSet geaendert = 0;
};

/// The tableau as it was painted last: which number cells stand out, and the boxes that said so.
struct Tableaubild {
    chances::NumberSet markiert = 0; ///< marked number cells
    int letzte = -1; ///< the pad cell of the last number, -1 for none
    std::string genau; ///< text of the "genau" box
    std::string mindestens; ///< text of the "mind." box
    double genauWert = 0; ///< the two texts as numbers
    double mindestWert = 0;
};

/// The main window.
struct MainForm {
    int Plein = NoNumber; ///< number of the current coup, 0 to 36, or NoNumber
    std::int64_t Coup = 0; ///< coups in the permanence; the row of the coup being processed

    bool Loaded = false;
    bool Visible = false;
    bool Enabled = true;
    std::uint64_t FocusRequests = 0;
    bool InHandler = false; ///< a handler is at work; no other one may start
    bool CloseRequested = false; ///< closing was asked for while a handler was at work

    std::array<controls::Grid, 4> Grid; ///< 0 sorted view, 1 permanence store, 3 Chancentabelle
    std::array<controls::Combo, 1> xpCombo;
    std::array<controls::CheckBox, 2> Check;
    std::array<controls::TextBox, 3> Text;
    Tableaubild Tableau;
    std::string FileName; ///< of the one file dialog: where it starts the next time
};

/// The status line of a long run, joined to a text when it is read.
struct Statuszeile {
    std::int64_t coup = 0; ///< first figure
    std::int64_t gesamt = 0; ///< total of the run
    std::int64_t schritt = 0; ///< step of the run, from 1; 0 while the line is empty
};

/// The progress dialog.
struct ProgressForm {
    bool Visible = false;
    std::uint8_t Abbruch = 0; ///< 1: the user has asked to stop
    Statuszeile Lbl_Status;
    controls::ProgressBar xpProgress;
    controls::Button xpButton;
};

/// The splash.
struct StartForm {
    bool Visible = false;
    bool Timer1Enabled = true;
    std::int16_t Ticks = 0;
};

/// The info dialog.
struct InfoForm {
    bool Loaded = false;
    bool Visible = false;
    std::uint64_t FocusRequests = 0;
    controls::Label lblVersion;
};

/// One cell of the rippling picture; all in pixels.
struct Wasserzelle {
    float BasisX = 0;
    float BasisY = 0;
    float VersatzX = 0;
    float VersatzY = 0;
};

/// The cells of the rippling picture, columns and rows from 0 to the sizes' last index.
struct Wasserfeld {
    int Spalten = 0;
    int Zeilen = 0;
    std::vector<Wasserzelle> Zellen; ///< column by column

    Wasserzelle& operator()(int spalte, int zeile) {
        return Zellen[static_cast<std::size_t>(spalte) * static_cast<std::size_t>(Zeilen)
            + static_cast<std::size_t>(zeile)];
    }
};

/// What a row pattern turned into when a number was last written on it.
struct Uebergang {
    bool bekannt = false;
    controls::PatternId vorher = 0;
    controls::PatternId nachher = 0;
};

/// Ready-made rows, kept so that a coup needs no text work. They only repeat what writing the
/// cells one by one gave before, and fall away when a grid renumbers its patterns or the view
/// changes its family or mode.
struct Fertigzeilen {
    std::array<Uebergang, chances::NumberCount> sicht; ///< bare view rows in their colours
    std::array<Uebergang, chances::NumberCount> speicher; ///< store rows
    std::array<Uebergang, chances::NumberCount> marken; ///< view rows with their marks
    std::uint64_t sichtStand = 0; ///< generations of the two grids
    std::uint64_t speicherStand = 0;
    int familie = -1;
    int modus = -1;
};

struct Programm {
    MainForm Frm_Main;
    ProgressForm Frm_Progressbar;
    StartForm Frm_Start;
    InfoForm Frm_Info;
    Zaehler Chancen;
    Wasserfeld Wasser_Feld;
    Fertigzeilen Fertig;
    std::uint64_t Zufall = 0; ///< state of the random generator
    std::string Version; ///< of the program file: major.minor.revision
};

} // namespace forms
