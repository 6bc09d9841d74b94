// SPDX-License-Identifier: MIT
// The program's tables against what is known of a roulette table and of the window's plan.
#include "chances/familien.h"
#include "forms/plan.h"
#include "stats/m_chancen.h"
#include "support/reference.h"
#include "support/stage.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

using forms::plan::Name;

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
    const forms::Programm& p = stage.programm;
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

TEST(Tables, StartOfTheProgram) {
    const support::Stage stage;
    EXPECT_EQ(
        support::difference(support::picture(stage.programm), support::Reference().picture()), "");
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

TEST(Tables, PlacesOfTheControls) {
    using forms::plan::Rect;
    namespace plan = forms::plan;
    EXPECT_EQ(plan::PadCells[36].place, (Rect{720, 3780, 315, 315}));
    EXPECT_EQ(plan::TableauCells[36].place, (Rect{4260, 7800, 495, 495}));
    EXPECT_EQ(plan::TableauCells[13].place, (Rect{3180, 3960, 495, 495}));
    EXPECT_EQ(plan::Badges[0].place, (Rect{3720, 1140, 495, 495}));
    const auto label = [](Name name, int index) {
        for (const auto& row : plan::CounterLabels)
            if (row.name == name && row.index == index)
                return row;
        return plan::GradientLabel{};
    };
    EXPECT_EQ(label(Name::XPLabel_TVS, 7).place, (Rect{4800, 2520, 1335, 495}));
    EXPECT_EQ(label(Name::XPLabel_TVP, 12).place, (Rect{1800, 7800, 1335, 495}));
    EXPECT_EQ(label(Name::XPLabel_TVP, 14).place, (Rect{4260, 1200, 1335, 495}));
    EXPECT_EQ(label(Name::XPLabel_N, 0).place, (Rect{480, 6840, 1275, 435}));
    EXPECT_EQ(label(Name::XPLabel_R, 0).place, (Rect{6180, 6780, 1275, 435}));
    EXPECT_EQ(label(Name::XPLabel_D, 1).place, (Rect{6060, 8040, 495, 495}));
    EXPECT_EQ(label(Name::XPLabel_K, 2).to, 65535U);
    std::vector<int> lines;
    for (const auto& line : plan::Lines)
        lines.push_back(line.index);
    EXPECT_EQ(lines, (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 9, 11}));
    EXPECT_EQ(plan::Lines.back().y2, 8340);
    EXPECT_EQ(plan::MainClient, (Rect{0, 0, 15240, 10710}));
}

} // namespace
