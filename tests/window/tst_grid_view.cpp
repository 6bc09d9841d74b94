// SPDX-License-Identifier: MIT
// The sorted view on screen: its columns, its scrolling, its pixels, and what a screen reader gets.
#include "window/grid/grid_view.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>

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

    GridView& show() {
        view = std::make_unique<GridView>(
            grid, plan::rowOf(plan::Sortierung, plan::Name::Grid), &panel);
        panel.resize(500, 700);
        panel.show();
        return *view;
    }

    QRgb pixel(std::int64_t row, int column) const {
        QCoreApplication::processEvents();
        const QRect cell = view->cellRect(row, column);
        const QImage image = view->viewport()->grab().toImage();
        return image.pixel(cell.topLeft() + QPoint(2, 2));
    }

    Grid grid;
    QWidget panel;
    std::unique_ptr<GridView> view;
};

TEST_F(GridViewTest, ShowsExactlyTheColumnsInUse) {
    GridView& shown = show();
    for (const auto& [width, lines, columns, pixels] :
        std::vector<std::array<int, 4>>{{2010, 0, 4, 134}, {2075, 3, 4, 138}, {4710, 0, 13, 314},
            {4910, 3, 13, 327}, {5610, 0, 16, 374}, {5870, 3, 16, 391}, {2010, 0, 4, 134}}) {
        SCOPED_TRACE(width);
        grid.Width = width;
        grid.GridLines = lines;
        shown.refresh();
        QCoreApplication::processEvents();
        EXPECT_EQ(shown.shownColumns().columns.size(), static_cast<std::size_t>(columns));
        EXPECT_EQ(shown.geometry(), QRect(8, 48, pixels, 617));
        EXPECT_EQ(shown.viewport()->width(), shown.shownColumns().width());
        const QScrollBar* bar = shown.verticalScrollBar();
        EXPECT_TRUE(bar->isVisible() && bar->width() >= 17);
        EXPECT_EQ(shown.viewport()->width() + bar->width() + 2, pixels);
        const int rows = shown.viewport()->height() - window::GridLayout::HeaderHeight;
        EXPECT_EQ(rows % window::GridLayout::RowHeight, 0) << "the last row would be cut";
    }
}

TEST_F(GridViewTest, ReachesFirstAndLastRowByEveryWay) {
    GridView& shown = show();
    for (const auto rows : std::initializer_list<std::int64_t>{0, 1, 35, 36, 37, 100 * Million}) {
        SCOPED_TRACE(rows);
        const std::int64_t last = std::max<std::int64_t>(0, rows - 35);
        grid.Clear();
        addRows(grid, rows);
        grid.ScrollRow(rows);
        shown.refresh();
        const QRect lowest = shown.cellRect(std::max<std::int64_t>(0, rows - 1), 1);
        EXPECT_TRUE(
            rows == 0 || (!lowest.isNull() && lowest.bottom() < shown.viewport()->height()));
        EXPECT_EQ(shown.top(), last);
        for (const auto& [key, top] : std::vector<std::pair<Qt::Key, std::int64_t>>{
                 {Qt::Key_Home, 0}, {Qt::Key_Down, std::min<std::int64_t>(last, 1)},
                 {Qt::Key_PageDown, std::min<std::int64_t>(last, 36)}, {Qt::Key_End, last},
                 {Qt::Key_PageUp, std::max<std::int64_t>(0, rows - 70)}}) {
            QTest::keyClick(&shown, key);
            EXPECT_EQ(shown.top(), top) << key;
        }
        QScrollBar& bar = *shown.verticalScrollBar();
        for (const bool end : {true, false}) {
            bar.setValue(end ? bar.maximum() : 0);
            EXPECT_EQ(shown.top(), end ? last : 0);
        }
    }
}

TEST_F(GridViewTest, FollowsEachRequestOnceAndStaysWithinTheRows) {
    GridView& shown = show();
    addRows(grid, 200);
    const auto follows = [&](std::int64_t row) {
        grid.ScrollRow(row);
        shown.refresh();
        return shown.top();
    };
    EXPECT_EQ(follows(0), 0);
    EXPECT_EQ(follows(100), 65) << "a row below comes in at the bottom";
    shown.scrollTo(150);
    shown.refresh();
    EXPECT_EQ(shown.top(), 150) << "a request that was followed holds nobody back";
    EXPECT_EQ(follows(100), 99) << "a row above comes in at the top, also when asked for again";
    EXPECT_EQ(follows(110), 99) << "a row in view moves nothing";
    shown.scrollTo(165);
    grid.RemoveRow(200);
    shown.refresh();
    EXPECT_EQ(shown.top(), 164);
    grid.Clear();
    shown.refresh();
    EXPECT_EQ(shown.top(), 0);
}

TEST_F(GridViewTest, PaintsGroundsAndForgetsThoseOfRemovedRows) {
    constexpr QRgb red = 0xFFFF0000;
    constexpr QRgb white = 0xFFFFFFFF;
    GridView& shown = show();
    grid.AddRow(pattern("17", false));
    grid.AddRow(pattern("18", true));
    shown.refresh();
    EXPECT_EQ(pixel(0, 4), white);
    EXPECT_EQ(pixel(1, 4), red);
    EXPECT_NE(pixel(1, 1), red) << "the serial number is never coloured";
    EXPECT_NE(pixel(1, 1), white) << "the first column looks different";
    grid.RemoveRow(2);
    grid.AddRow("2");
    grid.Row(1).RowColor(controls::Green);
    shown.refresh();
    EXPECT_EQ(pixel(0, 4), 0xFF00FF00);
    EXPECT_EQ(pixel(1, 4), white);
    // The first pattern after a reset has the number of the first one before it.
    grid.Clear();
    grid.AddRow(pattern("18", true));
    shown.refresh();
    EXPECT_EQ(pixel(0, 4), red);
}

TEST_F(GridViewTest, FitsALongSerialNumberIntoItsColumn) {
    addRows(grid, 100 * Million + 9);
    GridView& shown = show();
    // What stands in column 1, or from its last clear pixel to the middle of column 2.
    const auto part = [&](std::int64_t number, int left, int right) {
        grid.ScrollRow(number);
        shown.refresh();
        return shown.viewport()
            ->grab({left, shown.cellRect(number - 1, 1).top(), right - left, 16})
            .toImage();
    };
    constexpr std::int64_t Last = 100 * Million;
    EXPECT_NE(part(Last + 1, 0, 51), part(Last + 8, 0, 51)) << "the last digit is cut off";
    EXPECT_EQ(part(Last + 1, 51, 60), part(Last + 8, 51, 60)) << "ink beyond the column";
}

TEST_F(GridViewTest, IsATableForAScreenReaderAtTenMillionRows) {
    addRows(grid, 10 * Million);
    grid.ScrollRow(10 * Million);
    GridView& shown = show();
    auto* const accessible = QAccessible::queryAccessibleInterface(&shown);
    auto* const table = accessible->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 10 * Million);
    EXPECT_EQ(table->columnCount(), 16);
    EXPECT_EQ(accessible->childCount(), 16 * (10 * Million + 1));
    EXPECT_EQ(table->cellAt(10'000'000, 0), nullptr);
    EXPECT_EQ(table->cellAt(0, 16), nullptr);

    auto* const last = table->cellAt(9'999'999, 0);
    EXPECT_EQ(last->text(QAccessible::Name), QStringLiteral("10000000"));
    EXPECT_EQ(accessible->child(accessible->indexOfChild(last)), last);
    EXPECT_EQ(accessible->childAt(last->rect().center().x(), last->rect().center().y()), last);
    auto* const mark = table->cellAt(0, 1);
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
