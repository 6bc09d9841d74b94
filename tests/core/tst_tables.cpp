// SPDX-License-Identifier: MIT
// The program's tables against what is known of a roulette table and of the window's plan.
#include "chances/families.h"
#include "forms/plan.h"
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

/// A number that any change of any measure, colour or word changes, and of their order.
class Digest {
public:
    template <class... Values>
    Digest& operator()(const Values&... values) {
        (mix(values), ...);
        return *this;
    }
    std::uint64_t value() const { return value_; }

private:
    void mix(std::int64_t value) {
        value_ = (value_ ^ static_cast<std::uint64_t>(value)) * 0x100000001B3U;
    }
    void mix(std::string_view text) {
        for (const char letter : text)
            mix(static_cast<std::int64_t>(letter));
    }
    void mix(const forms::plan::Rect& r) { (*this)(r.left, r.top, r.width, r.height); }
    void mix(const forms::plan::Control& c) {
        (*this)(c.index, c.place, c.caption, c.font.size, c.font.bold, c.font.underline,
            c.foreColor, c.toolTip);
    }
    void mix(const forms::plan::GradientLabel& l) { (*this)(l.index, l.place, l.from, l.to); }
    void mix(const forms::plan::NumberCell& c) { (*this)(c.number, c.place); }
    void mix(const forms::plan::Shape& s) { (*this)(s.index, s.place, s.filled, s.fill, s.border); }
    void mix(const forms::plan::Line& l) { (*this)(l.index, l.x1, l.y1, l.x2, l.y2, l.width); }
    template <class Table>
    requires requires(const Table& table) { table.front().place; } || requires(const Table& table) {
        table.front().x1;
    }
    void mix(const Table& table) {
        for (const auto& row : table)
            mix(row);
    }

    std::uint64_t value_ = 0xCBF29CE484222325U;
};

// The plan is settled, and its windows are held against it. What remains is a slip while something
// near it is edited; a change that is meant brings its new digest along.
TEST(Tables, ThePlanIsAsItWasSettled) {
    namespace plan = forms::plan;
    EXPECT_EQ(plan::PadCells[36].place, (plan::Rect{720, 3780, 315, 315}));
    EXPECT_EQ(plan::TableauCells[36].place, (plan::Rect{4260, 7800, 495, 495}));
    EXPECT_EQ(
        Digest()(plan::PadCells, plan::TableauCells, plan::Badges).value(), 7179430915972940245U);
    EXPECT_EQ(
        Digest()(plan::CounterLabels, plan::Shapes, plan::Lines).value(), 15035059137035544816U);
    EXPECT_EQ(Digest()(plan::MainCaption, plan::MainClient, plan::Panels, plan::Eingabe,
                  plan::Sortierung, plan::Tableau, plan::PanelCaptionColor, plan::PanelBorderColor,
                  plan::HoverBack, plan::HoverFore)
                  .value(),
        9222857147172392327U);
    EXPECT_EQ(Digest()(plan::StartClient, plan::StartInterval, plan::Start, plan::ProgressClient,
                  plan::ProgressCaption, plan::Progress, plan::InfoClient, plan::InfoCaption,
                  plan::Info, plan::InfoDivider)
                  .value(),
        9969623374108125276U);
}

} // namespace
