// SPDX-License-Identifier: MIT
// The sorted view on screen: its columns, its scrolling, its pixels, and what a screen reader gets.
#include "window/grid/grid_view.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

namespace {

using controls::Grid;
using controls::RowPattern;
namespace plan = forms::plan;
using window::GridView;

constexpr std::int64_t Million = 1'000'000;

void addColumns(Grid& grid) {
    grid.AddColumn("", "Cp / NR", 800, 0);
    for (int j = 2; j <= 16; ++j)
        grid.AddColumn("", std::to_string(j - 1), 300, 2);
    grid.Width = 2010;
}

RowPattern pattern(const char* mark, bool red) {
    RowPattern row;
    row.serial(true);
    row.Cell(2, mark);
    for (int j = 2; red && j <= 16; ++j)
        row.CellColor(j, controls::Red);
    return row;
}

/// Adds rows in whole stretches; pushing 100 million one by one would take its time.
void addRows(Grid& grid, std::int64_t count) {
    const controls::PatternId id = grid.intern(pattern("17", false));
    const std::vector<std::uint8_t> keys(1 << 16);
    for (std::int64_t left = count; left > 0;) {
        const std::size_t part
            = std::min({grid.room(), keys.size(), static_cast<std::size_t>(left)});
        grid.appendRows(std::span(keys).first(part), {&id, 1});
        left -= static_cast<std::int64_t>(part);
    }
}

class GridViewTest : public testing::Test {
protected:
    GridViewTest() { addColumns(grid); }

    void press(Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(view.get(), &event);
    }

    GridView& show() {
        view = std::make_unique<GridView>(
            grid, plan::rowOf(plan::Sortierung, plan::Name::Grid), &panel);
        panel.resize(500, 700);
        panel.show();
        return *view;
    }

    bool whole(std::int64_t row) const {
        const QRect cell = view->cellRect(row, 1);
        return !cell.isNull() && cell.bottom() < view->viewport()->height();
    }

    QRgb pixel(std::int64_t row, int column) const {
        QCoreApplication::processEvents();
        const QRect cell = view->cellRect(row, column);
        const QImage image = view->viewport()->grab().toImage();
        const QPointF inside = QPointF(cell.topLeft() + QPoint(2, 2)) * image.devicePixelRatio();
        return image.pixel(inside.toPoint());
    }

    Grid grid;
    QWidget panel;
    std::unique_ptr<GridView> view;
};

TEST_F(GridViewTest, ShowsExactlyTheColumnsInUse) {
    struct Case {
        controls::Twips width;
        int lines;
        int columns;
        int pixels; // of the whole grid
    };
    GridView& shown = show();
    for (const Case& c : {Case{2010, 0, 4, 134}, Case{2075, 3, 4, 138}, Case{4710, 0, 13, 314},
             Case{4910, 3, 13, 327}, Case{5610, 0, 16, 374}, Case{5870, 3, 16, 391},
             Case{2010, 0, 4, 134}}) {
        SCOPED_TRACE(c.width);
        grid.Width = c.width;
        grid.GridLines = c.lines;
        shown.refresh();
        QCoreApplication::processEvents();
        EXPECT_EQ(shown.shownColumns().columns.size(), static_cast<std::size_t>(c.columns));
        EXPECT_EQ(shown.geometry(), QRect(8, 48, c.pixels, 617));
        EXPECT_EQ(shown.viewport()->width(), shown.shownColumns().width());
        const int bar = shown.verticalScrollBar()->width();
        EXPECT_GE(bar, 17);
        EXPECT_EQ(shown.viewport()->width() + bar + 2, c.pixels);
        EXPECT_TRUE(shown.verticalScrollBar()->isVisible());
        EXPECT_EQ((shown.viewport()->height() - window::GridLayout::HeaderHeight)
                % window::GridLayout::RowHeight,
            0)
            << "the last row would be cut";
    }
}

TEST_F(GridViewTest, ReachesFirstAndLastRowByEveryWay) {
    GridView& shown = show();
    for (const std::int64_t rows :
        std::initializer_list<std::int64_t>{0, 1, 35, 36, 37, Million, 100 * Million}) {
        SCOPED_TRACE(rows);
        grid.Clear();
        addRows(grid, rows);
        grid.ScrollRow(rows);
        shown.refresh();
        EXPECT_TRUE(rows == 0 || whole(rows - 1));
        EXPECT_EQ(shown.verticalScrollBar()->value(), shown.verticalScrollBar()->maximum());
        EXPECT_EQ(shown.top(), std::max<std::int64_t>(0, rows - 35));

        press(Qt::Key_Home);
        EXPECT_EQ(shown.top(), 0);
        EXPECT_TRUE(rows == 0 || whole(0));
        press(Qt::Key_Down);
        press(Qt::Key_PageDown);
        EXPECT_EQ(shown.top(), std::clamp<std::int64_t>(rows - 35, 0, 36));
        press(Qt::Key_End);
        EXPECT_TRUE(rows == 0 || whole(rows - 1));
        press(Qt::Key_PageUp);
        EXPECT_EQ(shown.top(), std::max<std::int64_t>(0, rows - 70));

        shown.verticalScrollBar()->setValue(shown.verticalScrollBar()->maximum());
        EXPECT_TRUE(rows == 0 || whole(rows - 1));
        shown.verticalScrollBar()->setValue(0);
        EXPECT_EQ(shown.top(), 0);
    }
}

TEST_F(GridViewTest, FollowsEachRequestOnceAndStaysWithinTheRows) {
    GridView& shown = show();
    addRows(grid, 200);
    grid.ScrollRow(0);
    shown.refresh();
    EXPECT_EQ(shown.top(), 0);
    grid.ScrollRow(100);
    shown.refresh();
    EXPECT_EQ(shown.top(), 65) << "a row below comes in at the bottom";
    shown.scrollTo(150);
    shown.refresh();
    EXPECT_EQ(shown.top(), 150) << "a request that was followed holds nobody back";
    grid.ScrollRow(100);
    shown.refresh();
    EXPECT_EQ(shown.top(), 99) << "a row above comes in at the top, also when asked for again";
    grid.ScrollRow(110);
    shown.refresh();
    EXPECT_EQ(shown.top(), 99) << "a row in view moves nothing";

    shown.scrollTo(165);
    grid.RemoveRow(200);
    shown.refresh();
    EXPECT_EQ(shown.top(), 164);
    grid.Clear();
    shown.refresh();
    EXPECT_EQ(shown.top(), 0);
}

TEST(RowScaleTest, EndsAreExactBeyondTheScrollBarsNumbers) {
    for (const std::int64_t last : {std::int64_t{0}, std::int64_t{1} << 30,
             (std::int64_t{1} << 31) + 5, std::int64_t{1} << 40, (std::int64_t{1} << 40) + 1}) {
        SCOPED_TRACE(last);
        const window::RowScale scale(last);
        EXPECT_EQ(scale.toRow(0), 0);
        EXPECT_EQ(scale.toRow(scale.barMaximum()), last);
        const std::int64_t middle = last / 2;
        EXPECT_LE(scale.toRow(scale.toBar(middle)), middle);
        EXPECT_GE(scale.toRow(scale.toBar(middle) + 1), std::min(last, middle + 1));
    }
}

TEST_F(GridViewTest, PaintsGroundsAndForgetsThoseOfRemovedRows) {
    constexpr QRgb red = 0xFFFF0000;
    constexpr QRgb white = 0xFFFFFFFF;
    GridView& shown = show();
    grid.AddRow(pattern("17", false));
    grid.AddRow(pattern("18", true));
    shown.refresh();
    EXPECT_EQ(pixel(0, 4), white);
    EXPECT_EQ(pixel(1, 2), red);
    EXPECT_EQ(pixel(1, 4), red);
    EXPECT_NE(pixel(1, 1), red) << "the serial number is never coloured";
    EXPECT_NE(pixel(1, 1), white) << "the first column looks different";

    grid.RemoveRow(2);
    grid.AddRow("2");
    shown.refresh();
    EXPECT_EQ(pixel(1, 4), white);
    grid.Row(2).RowColor(controls::Green);
    shown.refresh();
    EXPECT_EQ(pixel(1, 4), 0xFF00FF00);

    // The first pattern after a reset has the number of the first one before it.
    grid.Clear();
    grid.AddRow(pattern("18", true));
    shown.refresh();
    EXPECT_EQ(pixel(0, 4), red);
}

TEST_F(GridViewTest, RepaintsAllThatDiffersAfterAnyHistory) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto below = [&](std::int64_t end) { return static_cast<std::int64_t>(random()) % end; };
    GridView& shown = show();
    for (int step = 0; step < 300; ++step) {
        const std::int64_t rows = grid.RowCount();
        const auto action = below(8);
        if (action <= 2)
            for (auto left = below(9); left >= 0; --left)
                grid.AddRow(pattern(std::to_string(below(37)).c_str(), below(2) == 0));
        else if (action == 3 && rows > 0)
            grid.RemoveRow(rows);
        else if (action == 4 && rows > 0)
            grid.Row(below(rows) + 1).Cell(static_cast<int>(below(4)) + 2, "Z");
        else if (action == 5 && rows > 0)
            grid.ScrollRow(below(rows + 1));
        else if (action == 6)
            shown.scrollTo(below(rows + 1));
        else if (below(3) == 0) {
            grid.Clear();
            grid.AddRow(pattern("0", below(2) == 0));
        }
        shown.refresh();
        QCoreApplication::processEvents();
        const QImage screen = shown.screen()->grabWindow(panel.winId()).toImage();
        const QImage fresh = panel.grab().toImage().copy(screen.rect());
        ASSERT_EQ(screen.convertedTo(QImage::Format_RGB32), fresh.convertedTo(QImage::Format_RGB32))
            << "step " << step << ", action " << action;
    }
}

TEST_F(GridViewTest, FitsALongSerialNumberIntoItsColumn) {
    addRows(grid, 100 * Million + 9);
    GridView& shown = show();
    struct Parts {
        QImage number;
        QImage beyond; ///< from the last clear pixel of column 1 to the middle of column 2
    };
    const auto parts = [&](std::int64_t number) {
        grid.ScrollRow(number);
        shown.refresh();
        const QImage all = shown.viewport()->grab().toImage();
        const auto cut = [&](int left, int right) {
            const QRectF part(left, shown.cellRect(number - 1, 1).top(), right - left, 16);
            const qreal scale = all.devicePixelRatio();
            return all.copy(QRectF(part.topLeft() * scale, part.size() * scale).toRect());
        };
        return Parts{cut(0, 51), cut(51, 60)};
    };
    const Parts one = parts(100 * Million + 1);
    const Parts eight = parts(100 * Million + 8);
    EXPECT_NE(one.number, eight.number) << "the last digit is cut off";
    EXPECT_EQ(one.beyond, eight.beyond) << "ink beyond the column";
}

TEST_F(GridViewTest, IsATableForAScreenReaderAtTenMillionRows) {
    addRows(grid, 10 * Million);
    grid.ScrollRow(10 * Million);
    GridView& shown = show();
    auto* const accessible = QAccessible::queryAccessibleInterface(&shown);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Table);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Sortierte Permanenz"));
    auto* const table = accessible->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 10 * Million);
    EXPECT_EQ(table->columnCount(), 16);
    EXPECT_EQ(accessible->childCount(), 16 * (10 * Million + 1));
    EXPECT_EQ(table->columnDescription(0), QStringLiteral("Cp / NR"));
    EXPECT_EQ(table->cellAt(10'000'000, 0), nullptr);
    EXPECT_EQ(table->cellAt(0, 16), nullptr);

    auto* const last = table->cellAt(9'999'999, 0);
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last->text(QAccessible::Name), QStringLiteral("10000000"));
    EXPECT_EQ(last->tableCellInterface()->rowIndex(), 9'999'999);
    EXPECT_EQ(last->parent(), accessible);
    EXPECT_EQ(accessible->child(accessible->indexOfChild(last)), last);
    EXPECT_TRUE(shown.rect().translated(shown.mapToGlobal(QPoint())).contains(last->rect()));
    EXPECT_EQ(accessible->childAt(last->rect().center().x(), last->rect().center().y()), last);
    auto* const mark = table->cellAt(0, 1);
    EXPECT_EQ(mark->text(QAccessible::Name), QStringLiteral("17"));
    EXPECT_TRUE(mark->state().offscreen);
    EXPECT_EQ(mark->tableCellInterface()->columnHeaderCells().value(0), accessible->child(1));

    grid.RemoveRow(10 * Million);
    EXPECT_FALSE(last->isValid());
    EXPECT_EQ(last->text(QAccessible::Name), QString());

    const QAccessible::Id early = QAccessible::uniqueId(mark);
    for (int row = 0; row < 20'000; ++row)
        table->cellAt(row, 3);
    EXPECT_EQ(QAccessible::accessibleInterface(early), nullptr) << "cells pile up";
}

} // namespace
