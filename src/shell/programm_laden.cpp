// SPDX-License-Identifier: MIT
// The set-up of the main window's data at start.
#include "shell/programm_laden.h"

#include "grids/families.h"
#include "grids/sorted_view.h"
#include "stats/tableau.h"

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

constexpr std::array ViewColumn{ColumnPlan{"Cp / NR", grids::SerialWidth, Left}};

constexpr std::array StoreColumns{
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
static_assert(StoreColumns.size() == 1 + chances::TvpFirst);

constexpr std::array TableColumns{
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

static_assert(TableColumns.size() == chances::TableColumnCount);

/// Cells of a Chancentabelle row that carry its colour.
constexpr int LastColoredCell = chances::TvpFirst;

void setUpColumns(controls::Grid& grid, std::span<const ColumnPlan> columns) {
    grid.DisplayMode = 1;
    grid.GridLines = 0;
    grid.MustUpdate = false;
    for (const ColumnPlan& column : columns)
        grid.AddColumn("", column.caption, column.width, column.alignment);
}

void chanceRow(controls::Grid& table, int number) {
    const int row = number + 1;
    table.AddRow(std::to_string(number));
    for (int column = chances::NoirRouge; column <= chances::TableColumnCount; ++column)
        if (const auto code = chances::code(number, column); !code.empty())
            table.Row(row).Cell(column, code);
    if (const auto color = M_Tableau::rowColor(number))
        for (int column = chances::Plein; column <= LastColoredCell; ++column)
            table.Row(row).CellColor(column, *color);
}

} // namespace

void Programm_Laden(forms::Program& program) {
    Grids_Einrichten(program);
    Combo_Fuellen(program);
    Startwerte_Setzen(program);
}

void Grids_Einrichten(forms::Program& program) {
    auto& grid = program.Frm_Main.Grid;
    setUpColumns(grid[0], ViewColumn);
    for (int column = grids::FirstMarkColumn; column <= grids::ViewColumnCount; ++column)
        grid[0].AddColumn("", "", grids::MarkWidth, Centred);
    grid[0].Refresh();

    setUpColumns(grid[1], StoreColumns);
    grid[1].Refresh();

    setUpColumns(grid[3], TableColumns);
    for (int number = 0; number < chances::NumberCount; ++number)
        chanceRow(grid[3], number);
    grid[3].Refresh();
}

void Combo_Fuellen(forms::Program& program) {
    controls::Combo& combo = program.Frm_Main.xpCombo[0];
    for (const grids::Family& family : grids::Families)
        combo.AddItem(family.name);
    combo.ListIndex = 0;
    // The view needs the first family's shape, as if a user had chosen it.
    grids::applyFamily(program);
}

void Startwerte_Setzen(forms::Program& program) {
    program.Frm_Main.Coup = 0;
    program.Frm_Main.Plein = forms::NoNumber;
}

} // namespace M_ProgrammLaden
