// SPDX-License-Identifier: MIT
// The set-up of the main window's data at start.
#include "shell/m_programmladen.h"

#include "grids/auswahl.h"
#include "grids/familientabelle.h"

#include <array>
#include <span>
#include <string_view>

namespace M_ProgrammLaden {

namespace {

constexpr int Left = 0;
constexpr int Centred = 2;

struct ColumnPlan {
    std::string_view caption;
    controls::Twips width;
    int alignment;
};

constexpr std::array Sichtspalte{ColumnPlan{"Cp / NR", grids::SerialWidth, Left}};

constexpr std::array Speicherspalten{
    ColumnPlan{"Coups", 600, Left},
    ColumnPlan{"Plein", 500, Centred},
    ColumnPlan{"N/R", 500, Centred},
    ColumnPlan{"P/I", 500, Centred},
    ColumnPlan{"Ps/M", 500, Centred},
    ColumnPlan{"K", 500, Centred},
    ColumnPlan{"D", 500, Centred},
    ColumnPlan{"TVS", 500, Centred},
    ColumnPlan{"TVS", 500, Centred},
    ColumnPlan{"TVP", 500, Centred},
};

constexpr std::array Tabellenspalten{
    ColumnPlan{"Plein", 600, Left},
    ColumnPlan{"N/R", 500, Centred},
    ColumnPlan{"P/I", 500, Centred},
    ColumnPlan{"Ps/M", 500, Centred},
    ColumnPlan{"K", 500, Centred},
    ColumnPlan{"D", 500, Centred},
    ColumnPlan{"TVS", 500, Centred},
    ColumnPlan{"TVS", 500, Centred},
    ColumnPlan{"TVP", 500, Centred},
    ColumnPlan{"TVP", 500, Centred},
    ColumnPlan{"TVP", 500, Centred},
};

/// Cells of a Chancentabelle row that carry its colour.
constexpr int LastColoredCell = 9;

void einrichten(controls::Grid& grid, std::span<const ColumnPlan> columns) {
    grid.DisplayMode = 1;
    grid.GridLines = 0;
    grid.MustUpdate = false;
    for (const ColumnPlan& column : columns)
        grid.AddColumn("", column.caption, column.width, column.alignment);
}

void chancenzeile(controls::Grid& tabelle, int zahl) {
    const int row = zahl + 1;
    tabelle.AddRow(std::to_string(zahl));
    for (int column = chances::NoirRouge; column <= chances::ColumnCount; ++column)
        if (const auto code = chances::code(zahl, column); !code.empty())
            tabelle.Row(row).Cell(column, code);
    const std::string farbcode = tabelle.Row(row).Cell(chances::NoirRouge);
    for (int column = 1; column <= LastColoredCell; ++column) {
        if (farbcode == "Z")
            tabelle.Row(row).CellColor(column, controls::Green);
        if (farbcode == "R")
            tabelle.Row(row).CellColor(column, controls::Red);
    }
}

} // namespace

void Programm_Laden(forms::Programm& programm) {
    Grids_Einrichten(programm);
    Combo_Fuellen(programm);
    Startwerte_Setzen(programm);
}

void Grids_Einrichten(forms::Programm& programm) {
    auto& grid = programm.Frm_Main.Grid;
    einrichten(grid[0], Sichtspalte);
    for (int column = grids::FirstMarkColumn; column <= grids::ColumnCount; ++column)
        grid[0].AddColumn("", "", grids::MarkWidth, Centred);
    grid[0].Refresh();

    einrichten(grid[1], Speicherspalten);
    grid[1].Refresh();

    einrichten(grid[3], Tabellenspalten);
    for (int zahl = 0; zahl < chances::NumberCount; ++zahl)
        chancenzeile(grid[3], zahl);
    grid[3].Refresh();
}

void Combo_Fuellen(forms::Programm& programm) {
    controls::Combo& combo = programm.Frm_Main.xpCombo[0];
    for (const grids::Family& family : grids::Familientabelle)
        combo.AddItem(family.name);
    combo.ListIndex = 0;
    // The view needs the first family's shape, as if a user had chosen it.
    Auswahl::Familie_Anwenden(programm);
}

void Startwerte_Setzen(forms::Programm& programm) {
    programm.Frm_Main.Coup = 0;
    programm.Frm_Main.Plein = forms::NoNumber;
}

} // namespace M_ProgrammLaden
