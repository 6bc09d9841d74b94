// SPDX-License-Identifier: MIT
// The grid model by itself: any history of writes reads back, however many different rows there
// are.
#include "controls/grid.h"

#include <gtest/gtest.h>

namespace {

using controls::Grid;

TEST(Grid, RowNumbersAndBareRows) {
    Grid grid;
    grid.AddRow("1");
    grid.AddRow("7"); // not its own number: must not follow the row
    grid.AddRow("");
    grid.AddRow("4");
    grid.Row(4).Cell(1, "04");
    grid.Row(4).CellColor(16, 0);
    grid.Row(4).RowColor(0);
    std::string texts;
    for (std::int64_t row = 1; row <= 4; ++row)
        texts += grid.Row(row).Cell(1) + ",";
    EXPECT_EQ(texts, "1,7,,04,");
    EXPECT_EQ(grid.Row(4).CellColor(16), 0U);
    EXPECT_EQ(grid.Row(4).CellColor(15), std::nullopt);
    EXPECT_EQ(grid.Row(4).RowColor(), 0U);
    grid.RemoveRow(4);
    grid.AddRow("4");
    EXPECT_EQ(grid.RowCount(), 4);
    EXPECT_EQ(grid.Row(4).Cell(1), "4");
    EXPECT_EQ(grid.Row(4).CellColor(16), std::nullopt);
    EXPECT_EQ(grid.Row(4).RowColor(), std::nullopt);
    grid.Clear();
    for (std::int64_t row = 1; row <= 70'000; ++row) {
        grid.AddRow(std::to_string(row));
        grid.Row(row).Cell(9, std::to_string(row));
        grid.Row(row).Cell(9, "");
        ASSERT_EQ(grid.bytesPerRow(), 1) << "an empty text is as if never written";
    }
}

TEST(Grid, EveryRowDifferentBeyondTwoBytes) {
    constexpr std::int64_t Rows = 66'500;
    Grid grid;
    for (std::int64_t row = 1; row <= Rows; ++row) {
        grid.AddRow(std::to_string(row));
        grid.Row(row).Cell(2, std::to_string(row * 7919 % Rows));
        for (const std::int64_t edge : {255, 256, 257, 258, 65'535, 65'536, 65'537, 65'538})
            for (std::int64_t r = 1; row == edge && r <= row; ++r)
                ASSERT_EQ(grid.Row(r).Cell(2), std::to_string(r * 7919 % Rows))
                    << "row " << r << " of " << row;
    }
    for (std::int64_t row = 1; row <= Rows; ++row)
        grid.Row(row).Cell(2, std::to_string(row * 31 % 5000));
    for (std::int64_t row = Rows; row >= 1; grid.RemoveRow(row--))
        ASSERT_EQ(grid.Row(row).Cell(2), std::to_string(row * 31 % 5000));
}

} // namespace
