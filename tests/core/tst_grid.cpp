// SPDX-License-Identifier: MIT
// The grid model by itself: any history of writes reads back, however many different rows there
// are.
#include "controls/chunked.h"
#include "controls/grid.h"
#include "controls/pattern_table.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using controls::Grid;

TEST(Grid, RowNumbersAndBareRows) {
    Grid grid;
    grid.Clear();
    grid.AddRow("1");
    grid.AddRow("7"); // not its own number: must not follow the row
    grid.AddRow("");
    EXPECT_EQ(grid.patternIds(), 3U);
    grid.AddRow("4");
    EXPECT_EQ(grid.patternOf(4), grid.patternOf(1)) << "rows with their own number share a pattern";
    grid.Row(2).Cell(1, "2");
    EXPECT_EQ(grid.patternOf(2), grid.patternOf(1));
    grid.Row(4).Cell(1, "04");
    EXPECT_EQ(grid.Row(4).Cell(1), "04");
    grid.Row(4).CellColor(16, 0);
    grid.Row(4).RowColor(0);
    EXPECT_EQ(grid.Row(4).CellColor(16), 0U);
    EXPECT_EQ(grid.Row(4).CellColor(15), std::nullopt);
    EXPECT_EQ(grid.Row(4).Cell(16), "");
    grid.RemoveRow(4);
    grid.AddRow("4");
    EXPECT_EQ(grid.RowCount(), 4);
    EXPECT_EQ(grid.Row(4).Cell(1), "4");
    EXPECT_EQ(grid.Row(4).CellColor(16), std::nullopt);
    EXPECT_EQ(grid.Row(4).RowColor(), std::nullopt);
    grid.Row(4).Cell(9, "x");
    grid.Row(4).Cell(9, "");
    EXPECT_EQ(grid.patternOf(4), grid.patternOf(1)) << "an empty text is as if never written";
    grid.Clear();
    grid.AddRow("1");
    EXPECT_EQ(grid.RowCount(), 1);
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
    std::mt19937 random(7);
    std::vector<std::string> wanted(Rows + 1);
    for (std::int64_t row = 1; row <= Rows; ++row) {
        wanted[static_cast<std::size_t>(row)] = std::to_string(random() % 5000);
        grid.Row(row).Cell(2, wanted[static_cast<std::size_t>(row)]);
    }
    for (std::int64_t row = Rows; row >= 1; --row) {
        ASSERT_EQ(grid.Row(row).Cell(2), wanted[static_cast<std::size_t>(row)]);
        grid.RemoveRow(row);
    }
}

TEST(Grid, UnusedPatternsAreSweptAndTheirNumbersUsedAgain) {
    Grid grid;
    for (int row = 1; row <= 100; ++row)
        grid.AddRow(std::to_string(row));
    std::mt19937 random(11);
    std::vector<std::string> wanted(100);
    for (int i = 0; i < 20'000; ++i) {
        const std::size_t row = random() % 100;
        wanted[row] = std::to_string(i);
        grid.Row(static_cast<std::int64_t>(row) + 1).Cell(3, wanted[row]);
        ASSERT_LE(grid.patternIds(), 256U);
        for (std::size_t r = 0; i % 500 == 0 && r < 100; ++r)
            ASSERT_EQ(grid.Row(static_cast<std::int64_t>(r) + 1).Cell(3), wanted[r]) << i;
    }
    EXPECT_EQ(grid.bytesPerRow(), 1) << "100 different rows fit one byte each";
}

TEST(Grid, ANumberIsFreedOnceHoweverOftenIsSwept) {
    controls::PatternTable table;
    controls::RowPattern pattern;
    const auto add = [&](const char* text) {
        pattern.Cell(2, text);
        return table.add(pattern);
    };
    const controls::PatternId dropped = add("a");
    const controls::PatternId kept = add("b");
    for (int sweep = 0; sweep < 2; ++sweep)
        table.keep({0, 1});
    EXPECT_EQ(add("c"), dropped);
    EXPECT_EQ(add("d"), 2U);
    EXPECT_EQ(table[dropped].Cell(2), "c");
    EXPECT_EQ(table[kept].Cell(2), "b");
}

TEST(Grid, ChunksKeepTheirValuesWhileTheLastOnesGo) {
    controls::Chunked<std::uint8_t> values;
    constexpr std::int64_t Size = 4 * controls::Chunked<std::uint8_t>::ChunkSize + 1;
    const auto wanted = [](std::int64_t i) { return static_cast<std::uint8_t>(i * 31 >> 8); };
    for (const std::int64_t left : {Size, Size - 1, Size / 2, std::int64_t{0}, std::int64_t{1}}) {
        while (values.size() < left)
            values.push_back(wanted(values.size()));
        while (values.size() > left)
            values.pop_back();
        for (std::int64_t i = 0; i < left; ++i)
            ASSERT_EQ(values[i], wanted(i)) << i << " of " << left;
    }
}

} // namespace
