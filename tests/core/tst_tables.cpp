// SPDX-License-Identifier: MIT
// The program's tables against what is known of a roulette table.
#include "grids/families.h"
#include "stats/counters.h"
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
    for (const auto& [chance, index, is] :
        {std::tuple("N", 0, M_Chancen::Anz_Noir(p)), {"R", 0, M_Chancen::Anz_Rouge(p)},
            {"P", 0, M_Chancen::Anz_Pair(p)}, {"I", 0, M_Chancen::Anz_Impair(p)},
            {"Ps", 0, M_Chancen::Anz_Passe(p)}, {"M", 0, M_Chancen::Anz_Manque(p)},
            {"K", 2, M_Chancen::Anz_Kolonne(p, 2)}, {"D", 3, M_Chancen::Anz_Dutzend(p, 3)},
            {"TVS", 11, M_Chancen::Anz_TVS(p, 11)}, {"TVP", 14, M_Chancen::Anz_TVP(p, 14)}}) {
        const auto set = support::members(chance, index);
        EXPECT_EQ(is, std::accumulate(set.begin(), set.end(), std::ssize(set))) << chance;
    }
    EXPECT_EQ(M_Chancen::Anz_Plein(p, 36), 37);
    EXPECT_EQ(M_Chancen::Anz_Gefallen(p), 37);
}

TEST(Tables, StartOfTheProgram) {
    const support::Stage stage;
    EXPECT_EQ(stage.main.xpCombo[0].Items.size(), grids::Families.size());
    EXPECT_EQ(stage.main.xpCombo[0].Items.at(5), "Transversalen Simple");
    EXPECT_EQ(grids::family(-1), nullptr);
    EXPECT_EQ(grids::family(static_cast<int>(grids::Families.size())), nullptr);
    const std::array<std::vector<std::string>, 2> captions{
        {{"Coups", "Plein", "N/R", "P/I", "Ps/M", "K", "D", "TVS", "TVS", "TVP"},
            {"Plein", "N/R", "P/I", "Ps/M", "K", "D", "TVS", "TVS", "TVP", "TVP", "TVP"}}};
    for (const std::size_t i : {0U, 1U, 3U}) {
        const controls::Grid& grid = stage.main.Grid[i];
        EXPECT_TRUE(!grid.MustUpdate && grid.DisplayMode == 1 && grid.GridLines == 0);
        for (int j = 1; i > 0 && j <= grid.ColumnCount(); ++j) {
            EXPECT_EQ(grid.Column(j).Caption, captions[i / 2].at(static_cast<std::size_t>(j - 1)));
            EXPECT_EQ(grid.Column(j).Width, j == 1 ? 600 : 500);
            EXPECT_EQ(grid.Column(j).Alignment, j == 1 ? 0 : 2);
        }
    }
}

} // namespace
