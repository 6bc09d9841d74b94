// SPDX-License-Identifier: MIT
// The sorted view on screen: against the toolkit's own table view, and long against short.
#include "data.h"
#include "goals.h"
#include "grid_stage.h"
#include "table_model.h"

#include <QHeaderView>
#include <QTableView>

#include <memory>
#include <random>

namespace bench {

namespace {

constexpr int Frames = 401;

/// The toolkit's view of the same rows, as large, with the same columns; without the row header,
/// which would only cost it time.
std::unique_ptr<QTableView> tableView(TableModel& model, const GridStage& like) {
    auto table = std::make_unique<QTableView>();
    table->setFrameShape(QFrame::NoFrame);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(window::GridLayout::RowHeight);
    table->verticalHeader()->setMinimumSectionSize(window::GridLayout::RowHeight);
    table->horizontalHeader()->setMinimumSectionSize(1);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setFont(like.view->font());
    table->setModel(&model);
    for (int column = 0; const auto& place : like.view->shownColumns().columns)
        table->setColumnWidth(column++, place.right - place.left);
    table->resize(like.view->size());
    table->show();
    table->scrollToBottom();
    QCoreApplication::processEvents();
    return table;
}

void againstTableView(Report& report, GridStage& grid) {
    TableModel model(grid.stage.view(), static_cast<int>(grid.view->shownColumns().columns.size()));
    const auto table = tableView(model, grid);
    grid.view->scrollTo(grid.stage.view().RowCount());
    QCoreApplication::processEvents();
    const Comparison times = interleaved(
        Frames, [&] { return timeOf([&] { grid.view->viewport()->repaint(); }); },
        [&] { return timeOf([&] { table->viewport()->repaint(); }); });
    report.check(model.asked() > Frames, "the table view asked its model");
    report.goal({"repaint of the grid / QTableView, same 10 M rows", times.ratio(), "x", 0.5, 0.15,
        text("%.3f against %.3f ms", times.ours * 1e3, times.theirs * 1e3)});
}

struct Action {
    const char* name;
    std::function<void(GridStage&)> run;
};

/// Each frame of either permanence after the other, so that both see the same machine.
void compare(Report& report, const Action& action, GridStage& large, GridStage& small) {
    const auto frame = [&](GridStage& grid) {
        return timeOf([&] {
            action.run(grid);
            QCoreApplication::processEvents();
        });
    };
    const Comparison times = interleaved(
        Frames, [&] { return frame(large); }, [&] { return frame(small); });
    report.goal({std::string(action.name) + ", 10 M rows / 100 k", times.ratio(), "x", 1.2, 1.05,
        text("%.3f against %.3f ms", times.ours * 1e3, times.theirs * 1e3)});
}

} // namespace

void gridGoals(Report& report) {
    report.section("The sorted view, all 16 columns (processor time)");
    GridStage large(10 * Million);
    GridStage small(100 * Thousand);
    againstTableView(report, large);
    std::mt19937_64 random(5);
    const std::array actions{
        Action{"frame", [](GridStage& grid) { grid.frame(); }},
        Action{"jump",
            [&](GridStage& grid) {
                const auto rows = static_cast<std::uint64_t>(grid.stage.view().RowCount());
                grid.view->scrollTo(static_cast<std::int64_t>(random() % rows));
            }},
        Action{
            "scroll one row", [](GridStage& grid) { grid.view->scrollTo(grid.view->top() + 1); }},
        Action{"append and follow", [](GridStage& grid) { grid.append(); }},
        Action{"undo", [](GridStage& grid) { grid.undo(); }},
    };
    for (const Action& action : actions) {
        for (GridStage* grid : {&large, &small}) {
            grid->view->scrollTo(grid->stage.view().RowCount() / 2);
            QCoreApplication::processEvents();
        }
        compare(report, action, large, small);
    }
}

} // namespace bench
