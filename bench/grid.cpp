// SPDX-License-Identifier: MIT
// The sorted view on screen: against the toolkit's own table view, and long against short.
#include "data.h"
#include "look/style.h"
#include "look/text.h"
#include "parts.h"
#include "stage.h"
#include "window/grid/grid_view.h"

#include <QAbstractTableModel>
#include <QBrush>
#include <QHeaderView>
#include <QTableView>

#include <array>
#include <memory>
#include <random>

namespace bench {

namespace {

constexpr int Frames = 401;
constexpr int SingleActions = 101;

/// The sorted view over a permanence of any length, with the family that has the most columns.
struct GridStage {
    explicit GridStage(std::int64_t coups) {
        stage.family(6);
        stage.load(dataOf(coups).file);
        view = std::make_unique<window::GridView>(stage.view(),
            forms::plan::rowOf(forms::plan::Sortierung, forms::plan::Name::Grid), &panel);
        panel.resize(500, 700);
        panel.show();
        view->scrollTo(stage.rows() / 2);
        QCoreApplication::processEvents();
    }

    Stage stage;
    QWidget panel;
    std::unique_ptr<window::GridView> view;
    std::mt19937_64 random{5};
    std::int64_t clicks = 0;
};

/// The same rows as the toolkit's own table view wants them.
class TableModel : public QAbstractTableModel {
public:
    TableModel(const controls::Grid& grid, int columns) : grid_(grid), columns_(columns) { }

    int rowCount(const QModelIndex&) const override { return static_cast<int>(grid_.RowCount()); }
    int columnCount(const QModelIndex&) const override { return columns_; }
    QVariant data(const QModelIndex& index, int role) const override {
        ++asked;
        const std::int64_t row = index.row() + 1;
        const int column = index.column() + 1;
        const controls::RowPattern& pattern = grid_.pattern(grid_.patternOf(row));
        if (role == Qt::DisplayRole)
            return column == 1 ? QString::number(row) : look::toText(pattern.Cell(column));
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(column == 1 ? Qt::AlignLeft : Qt::AlignHCenter)
                | static_cast<int>(Qt::AlignVCenter);
        if (const auto color = pattern.CellColor(column); role == Qt::BackgroundRole && color)
            return QBrush(look::toColor(*color));
        return {};
    }

    mutable std::int64_t asked = 0; ///< how often a cell was asked for

private:
    const controls::Grid& grid_;
    int columns_;
};

/// As large, with the same columns; without the row header, which would only cost it time.
void showLike(const GridStage& grid, TableModel& model, QTableView& table) {
    table.setFrameShape(QFrame::NoFrame);
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(window::GridLayout::RowHeight);
    table.verticalHeader()->setMinimumSectionSize(window::GridLayout::RowHeight);
    table.horizontalHeader()->setMinimumSectionSize(1);
    table.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    table.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table.setFont(grid.view->font());
    table.setModel(&model);
    for (int column = 0; const auto& place : grid.view->shownColumns().columns)
        table.setColumnWidth(column++, place.right - place.left);
    table.resize(grid.view->size());
    table.show();
    table.scrollToBottom();
    QCoreApplication::processEvents();
}

void againstTableView(Report& report, GridStage& grid) {
    TableModel model(grid.stage.view(), static_cast<int>(grid.view->shownColumns().columns.size()));
    QTableView table;
    showLike(grid, model, table);
    grid.view->scrollTo(grid.stage.rows());
    QCoreApplication::processEvents();
    const Comparison times = interleaved(
        Frames, [&] { return timeOf([&] { grid.view->viewport()->repaint(); }); },
        [&] { return timeOf([&] { table.viewport()->repaint(); }); });
    report.check(model.asked > Frames, "the table view asked its model");
    report.ratio(
        "repaint of the grid / QTableView, same 10 M rows", times, {0.15, 0.06}, 1e3, "ms");
}

struct Action {
    const char* name;
    void (*run)(GridStage&);
};

const std::array actions{
    Action{"frame",
        [](GridStage& grid) {
            grid.view->refresh();
            grid.view->viewport()->update();
        }},
    Action{"jump",
        [](GridStage& grid) {
            const auto rows = static_cast<std::uint64_t>(grid.stage.rows());
            grid.view->scrollTo(static_cast<std::int64_t>(grid.random() % rows));
        }},
    Action{"scroll", [](GridStage& grid) { grid.view->scrollTo(grid.view->top() + 1); }},
    Action{"append",
        [](GridStage& grid) {
            grid.stage.click(++grid.clicks);
            grid.view->refresh();
        }},
    Action{"undo",
        [](GridStage& grid) {
            grid.stage.undo();
            grid.view->scrollTo(grid.stage.rows());
        }},
};

double frameOf(const Action& action, GridStage& grid) {
    return timeOf([&] {
        action.run(grid);
        QCoreApplication::processEvents();
    });
}

} // namespace

void gridGoals(Report& report) {
    GridStage large(10 * Million);
    GridStage small(100 * Thousand);
    againstTableView(report, large);
    for (const Action& action : actions) {
        for (GridStage* grid : {&large, &small})
            grid->view->scrollTo(grid->stage.rows() / 2);
        QCoreApplication::processEvents();
        // A frame of either after the other, so that both see the same machine.
        const Comparison times = interleaved(
            Frames, [&] { return frameOf(action, large); }, [&] { return frameOf(action, small); });
        report.ratio(action.name + QString(", 10 M rows / 100 k"), times, {1.2, 1.05}, 1e3, "ms");
    }
    for (const GridStage* grid : {&large, &small})
        report.check(grid->clicks == Frames && grid->stage.rows() % Thousand == 0,
            "every appended row was taken back");
}

QString actionTimes(std::int64_t coups) {
    GridStage grid(coups);
    QString all;
    for (const Action& action : actions) {
        std::vector<double> times;
        for (int i = 0; i < SingleActions; ++i)
            times.push_back(frameOf(action, grid));
        all += QString::asprintf("  %s %.0f", action.name, median(times) * 1e6);
    }
    return all;
}

} // namespace bench
