// SPDX-License-Identifier: MIT
// A coup's way into the permanence.
#include "coup/pipeline.h"

#include "grids/placement.h"
#include "stats/counters.h"
#include "stats/tableau.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <type_traits>

namespace M_Permanenz {

namespace {

/// Columns of the store that hold the chances, and where they come from in the Chancentabelle.
constexpr int FirstChanceColumn = 3;
constexpr int LastChanceColumn = 10;
constexpr int StoreToTable = -1;

/// Coloured cells of a view row; the serial number in cell 1 never is.
constexpr int FirstColoredCell = 2;
constexpr int LastColoredCell = 16;

std::optional<controls::Color> rowColor(int number) {
    switch (chances::classOf(number)) {
    case chances::NumberClass::Rouge:
        return controls::Red;
    case chances::NumberClass::Zero:
        return controls::Green;
    case chances::NumberClass::Noir:
        break;
    }
    return std::nullopt;
}

controls::RowPattern viewRow(int number) {
    controls::RowPattern row;
    row.serial(true);
    if (const auto color = rowColor(number))
        for (int column = FirstColoredCell; column <= LastColoredCell; ++column)
            row.CellColor(column, *color);
    return row;
}

controls::RowPattern storeRow(int number) {
    controls::RowPattern row;
    row.serial(true);
    row.Cell(2, chances::code(number, chances::Plein));
    for (int column = FirstChanceColumn; column <= LastChanceColumn; ++column)
        row.Cell(column, chances::code(number, column + StoreToTable));
    if (const auto color = rowColor(number))
        row.RowColor(*color);
    return row;
}

/// The pattern of a number's row, made by `make` the first time and kept in `ready` from then on.
template <class Make>
controls::PatternId patternFor(
    controls::Grid& grid, forms::Transition& ready, int number, Make make) {
    if (!ready.known)
        ready = {true, 0, grid.intern(make(number))};
    return ready.after;
}

/// The ready-made rows of a number, where both are known.
struct RowPair {
    bool known = false;
    controls::PatternId view = 0;
    controls::PatternId store = 0;
};

std::array<RowPair, chances::NumberCount> rowPairs(Program& program) {
    checkReadyRows(program);
    const forms::ReadyRows& ready = program.readyRows;
    std::array<RowPair, chances::NumberCount> pairs{};
    for (std::size_t z = 0; z < pairs.size(); ++z) {
        const forms::Transition& bare = ready.view[z];
        const forms::Transition& marks = ready.marks[z];
        pairs[z] = {bare.known && ready.store[z].known && marks.known && marks.before == bare.after,
            marks.after, ready.store[z].after};
    }
    return pairs;
}

/// Takes in coups from the front of `numbers` as long as their rows are ready-made and the grids'
/// chunks have room; gives how many.
std::size_t takeReadyCoups(Program& program, std::span<const std::uint8_t> numbers) {
    forms::MainForm& form = program.Frm_Main;
    const auto pairs = rowPairs(program);
    std::array<std::int64_t, chances::NumberCount> counts{};
    const std::size_t count = form.Grid[0].ids().visit([&](auto& view) {
        return form.Grid[1].ids().visit([&](auto& store) {
            const auto viewRoom = view.spare();
            const auto storeRoom = store.spare();
            const std::size_t most = std::min({numbers.size(), viewRoom.size(), storeRoom.size()});
            std::size_t i = 0;
            for (; i < most && pairs[numbers[i]].known; ++i) {
                const RowPair& pair = pairs[numbers[i]];
                viewRoom[i]
                    = static_cast<std::remove_reference_t<decltype(viewRoom[i])>>(pair.view);
                storeRoom[i]
                    = static_cast<std::remove_reference_t<decltype(storeRoom[i])>>(pair.store);
                ++counts[numbers[i]];
            }
            view.grow(static_cast<std::int64_t>(i));
            store.grow(static_cast<std::int64_t>(i));
            return i;
        });
    });
    if (count == 0)
        return 0;
    form.Coup += static_cast<std::int64_t>(count);
    form.Plein = numbers[count - 1];
    form.Grid[1].Refresh();
    form.Grid[0].Refresh();
    M_Chancen::addCounts(program, counts);
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
    forms::MainForm& form = program.Frm_Main;
    const int number = form.Plein;
    const auto index = static_cast<std::size_t>(number);
    checkReadyRows(program);
    const auto view = patternFor(form.Grid[0], program.readyRows.view[index], number, viewRow);
    const auto store = patternFor(form.Grid[1], program.readyRows.store[index], number, storeRow);
    form.Grid[0].addPattern(view);
    form.Grid[1].addPattern(store);
    form.Grid[1].Refresh();
    form.Grid[0].Refresh();
}

} // namespace M_Permanenz
