// SPDX-License-Identifier: MIT
// The program's tables against what is known of a roulette table.
#include "grids/families.h"
#include "stats/counters.h"
#include "support/reference.h"
#include "support/stage.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

TEST(Tables, ChancesOfAllNumbers) {
    const support::Stage stage;
    const controls::Grid& table = stage.main.Grid[3];
    ASSERT_EQ(table.RowCount(), 37);
    ASSERT_EQ(table.ColumnCount(), 11);
    for (int n = 0; n <= 36; ++n) {
        const auto wanted = support::codes(n);
        for (int column = 1; column <= 11; ++column) {
            SCOPED_TRACE("number " + std::to_string(n) + " column " + std::to_string(column));
            const auto text = wanted[static_cast<std::size_t>(column)];
            EXPECT_EQ(chances::code(n, column), text);
            EXPECT_EQ(table.Row(n + 1).Cell(column), text);
            const bool colored = column <= 9 && wanted[2] != "N";
            EXPECT_EQ(table.Row(n + 1).CellColor(column),
                colored ? std::optional(support::numberColor(n)) : std::nullopt);
        }
    }
}

TEST(Tables, CountersByTheirNames) {
    support::Stage stage;
    for (int n = 0; n <= 36; ++n) // number n falls n + 1 times: no two chances count alike
        for (int i = 0; i <= n; ++i)
            stage.click(n);
    const forms::Program& p = stage.program;
    const auto wanted = [](const char* chance, int index = 0) {
        const auto set = support::members(chance, index);
        return std::accumulate(set.begin(), set.end(), static_cast<std::int64_t>(set.size()));
    };
    EXPECT_EQ(M_Chancen::Anz_Noir(p), wanted("N"));
    EXPECT_EQ(M_Chancen::Anz_Rouge(p), wanted("R"));
    EXPECT_EQ(M_Chancen::Anz_Pair(p), wanted("P"));
    EXPECT_EQ(M_Chancen::Anz_Impair(p), wanted("I"));
    EXPECT_EQ(M_Chancen::Anz_Passe(p), wanted("Ps"));
    EXPECT_EQ(M_Chancen::Anz_Manque(p), wanted("M"));
    EXPECT_EQ(M_Chancen::Anz_Kolonne(p, 2), wanted("K", 2));
    EXPECT_EQ(M_Chancen::Anz_Dutzend(p, 3), wanted("D", 3));
    EXPECT_EQ(M_Chancen::Anz_TVS(p, 11), wanted("TVS", 11));
    EXPECT_EQ(M_Chancen::Anz_TVP(p, 14), wanted("TVP", 14));
    EXPECT_EQ(M_Chancen::Anz_Plein(p, 36), 37);
    EXPECT_EQ(M_Chancen::Anz_Gefallen(p), 37);
}

TEST(Tables, AnEntryThatIsNoneHasNoFamily) {
    for (int entry = -1; entry <= 7; ++entry)
        EXPECT_EQ(grids::family(entry) != nullptr, entry >= 0 && entry <= 6) << entry;
}

TEST(Tables, StartOfTheProgram) {
    const support::Stage stage;
    EXPECT_EQ(
        support::difference(support::picture(stage.program), support::Reference().picture()), "");
    const std::vector<std::string> families{"Noir/Rouge", "Pair/Impair", "Passe/Manque", "Kolonnen",
        "Dutzende", "Transversalen Simple", "Transversalen Plein"};
    EXPECT_EQ(stage.main.xpCombo[0].Items, families);
    const std::array<std::vector<std::string>, 2> captions{
        {{"Coups", "Plein", "N/R", "P/I", "Ps/M", "K", "D", "TVS", "TVS", "TVP"},
            {"Plein", "N/R", "P/I", "Ps/M", "K", "D", "TVS", "TVS", "TVP", "TVP", "TVP"}}};
    for (const std::size_t i : {0U, 1U}) {
        const controls::Grid& grid = stage.main.Grid[i == 0 ? 1 : 3];
        ASSERT_EQ(grid.ColumnCount(), static_cast<int>(captions[i].size()));
        for (int j = 1; j <= grid.ColumnCount(); ++j) {
            EXPECT_EQ(grid.Column(j).Caption, captions[i][static_cast<std::size_t>(j - 1)]);
            EXPECT_EQ(grid.Column(j).Width, j == 1 ? 600 : 500);
            EXPECT_EQ(grid.Column(j).Alignment, j == 1 ? 0 : 2);
        }
    }
    for (const std::size_t i : {0U, 1U, 3U}) {
        EXPECT_FALSE(stage.main.Grid[i].MustUpdate);
        EXPECT_EQ(stage.main.Grid[i].DisplayMode, 1);
        EXPECT_EQ(stage.main.Grid[i].GridLines, 0);
    }
}

} // namespace
