// SPDX-License-Identifier: MIT
// A coup's way into the permanence.
#include "coup/coups.h"

#include "grids/families.h"
#include "grids/sorted_view.h"
#include "stats/counters.h"
#include "stats/tableau.h"

#include <span>

namespace M_Permanenz {

namespace {

/// The store holds columns 1 to 9 of the Chancentabelle, shifted right by one.
constexpr int TableToStore = 1;

controls::RowPattern viewRow(int number) {
    controls::RowPattern row;
    row.serial(true);
    if (const auto color = M_Tableau::rowColor(number))
        for (int column = grids::FirstMarkColumn; column <= grids::ViewColumnCount; ++column)
            row.CellColor(column, *color);
    return row;
}

controls::RowPattern storeRow(int number) {
    controls::RowPattern row;
    row.serial(true);
    for (int column = chances::Plein; column <= chances::TvpFirst; ++column)
        row.Cell(column + TableToStore, chances::code(number, column));
    if (const auto color = M_Tableau::rowColor(number))
        row.RowColor(*color);
    return row;
}

/// Takes in coups from the front of `numbers` as long as their rows are ready-made and the grids
/// have room; returns how many.
std::size_t takeReadyCoups(Program& program, std::span<const std::uint8_t> numbers) {
    forms::MainForm& form = program.Frm_Main;
    const std::size_t count
        = forms::currentRows(program).append(form.Grid[0], form.Grid[1], numbers);
    if (count == 0)
        return 0;
    form.Coup += static_cast<std::int64_t>(count);
    form.Plein = numbers[count - 1];
    form.Grid[1].Refresh();
    form.Grid[0].Refresh();
    M_Chancen::countAll(program, numbers.first(count));
    M_Tableau::Tableau_Aktualisieren(program);
    return count;
}

} // namespace

void takeCoups(Program& program, std::span<const std::uint8_t> numbers) {
    while (!numbers.empty()) {
        numbers = numbers.subspan(takeReadyCoups(program, numbers));
        // The next one's rows have to be made first, or a new chunk begun.
        if (!numbers.empty()) {
            takeCoup(program, numbers.front());
            numbers = numbers.subspan(1);
        }
    }
}

void takeCoup(Program& program, int number) {
    forms::MainForm& form = program.Frm_Main;
    const int previous = form.Plein;
    form.Plein = number;
    ++form.Coup;
    try {
        Eingabe_Coup(program);
    } catch (...) {
        // No half coup: memory may give out between the steps.
        for (controls::Grid& grid : std::span(form.Grid).first(2))
            if (grid.RowCount() == form.Coup)
                grid.RemoveRow(form.Coup);
        --form.Coup;
        form.Plein = previous;
        throw;
    }
    M_Chancen::Chancen_Coup(program);
    M_Tableau::Tableau_Aktualisieren(program);
}

void Eingabe_Coup(Program& program) {
    Permanenz_Zeile(program);
    Sortierung_Coup(program);
}

void Permanenz_Zeile(Program& program) {
    using Step = forms::ReadyRows::Step;
    forms::MainForm& form = program.Frm_Main;
    forms::ReadyRows& ready = forms::currentRows(program);
    const int number = form.Plein;
    const auto view
        = ready.after(Step::View, number, 0, [&] { return form.Grid[0].intern(viewRow(number)); });
    const auto store = ready.after(
        Step::Store, number, 0, [&] { return form.Grid[1].intern(storeRow(number)); });
    form.Grid[0].addPattern(view);
    form.Grid[1].addPattern(store);
    form.Grid[1].Refresh();
    form.Grid[0].Refresh();
}

} // namespace M_Permanenz
