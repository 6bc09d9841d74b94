// SPDX-License-Identifier: MIT
// The window's plan against the rules of its layout: grids are even, pairs mirrored, things inside
// what holds them, apart from each other and beside what they belong to.
#include "forms/plan.h"
#include "support/reference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <vector>

namespace {

namespace plan = forms::plan;
using controls::Rect;
using plan::Name;

constexpr int Pixel = controls::TwipsPerPixel;
/// Every table of controls, and the rectangle that holds them.
constexpr std::array<std::pair<std::span<const plan::Control>, Rect>, 7> Tables{
    {{plan::Panels, plan::MainClient}, {plan::Eingabe, plan::Panels[0].place},
        {plan::Sortierung, plan::Panels[1].place}, {plan::Tableau, plan::Panels[2].place},
        {plan::Start, plan::StartClient}, {plan::Progress, plan::ProgressClient},
        {plan::Info, plan::InfoClient}}};

int twiceMiddle(const Rect& r) {
    return r.left + r.right();
}

TEST(Layout, MeasuresAreWholePixelsAndIndicesHaveNoGap) {
    std::vector<int> broken;
    const auto whole = [&](std::initializer_list<int> measures) {
        std::copy_if(measures.begin(), measures.end(), std::back_inserter(broken),
            [](int twips) { return twips % Pixel != 0; });
    };
    const auto check = [&](const auto& table) {
        for (const auto& row : table)
            whole({row.place.left, row.place.top, row.place.width, row.place.height});
    };
    std::map<Name, std::set<int>> indices;
    for (std::size_t i = 0; i < Tables.size(); ++i) {
        check(Tables[i].first);
        const Rect& outer = Tables[i].second;
        whole({outer.left, outer.top, outer.width, outer.height});
        for (const plan::Control& control : Tables[i].first) {
            EXPECT_EQ(control.font.size % 75, 0) << "hundredths of a point, 75 to the pixel";
            if (i < 4)
                EXPECT_TRUE(indices[control.name].insert(control.index).second);
            else
                EXPECT_EQ(control.index, control.name == Name::lblDisclaimer ? 1 : 0);
        }
    }
    check(plan::PadCells);
    check(plan::TableauCells);
    check(plan::CounterLabels);
    check(plan::Shapes);
    for (const plan::Line& line : plan::Lines)
        whole({line.x1, line.y1, line.x2, line.y2});
    EXPECT_EQ(broken, (std::vector{2000, 1467, 1452, 2350})) << "so on purpose";
    for (const auto& label : plan::CounterLabels) {
        EXPECT_TRUE(indices[label.name].insert(label.index).second);
        for (const unsigned part : {label.from, label.from >> 8, label.from >> 16, label.to,
                 label.to >> 8, label.to >> 16})
            EXPECT_TRUE(part % 256 % 32 == 0 || part % 256 == 255) << "a step between two colours";
    }
    for (const auto& [name, all] : indices) {
        const bool fromOne = name >= Name::XPLabel_K && name <= Name::XPLabel_TVP;
        EXPECT_EQ(*all.begin(), fromOne ? 1 : 0);
        EXPECT_EQ(*all.rbegin() - *all.begin() + 1, static_cast<int>(all.size()));
    }
}

TEST(Layout, ControlsStandInWhatHoldsThemAndApart) {
    for (const auto& [table, outer] : Tables)
        for (const plan::Control& a : table) {
            SCOPED_TRACE(a.place.left);
            // The line at the foot of the info dialog is higher than its text.
            const int over = a.name == Name::lblDisclaimer ? 150 : 0;
            EXPECT_TRUE(a.place.left >= 0 && a.place.right() <= outer.width + over);
            EXPECT_TRUE(a.place.top >= 0 && a.place.bottom() <= outer.height + over);
            for (const plan::Control& b : table)
                // Pictures and what lies over them; others may share a line of pixels.
                EXPECT_TRUE(&a >= &b || a.name == Name::Image1 || a.name == Name::Picture2
                    || a.place.right() <= b.place.left + Pixel
                    || b.place.right() <= a.place.left + Pixel
                    || a.place.bottom() <= b.place.top + Pixel
                    || b.place.bottom() <= a.place.top + Pixel);
        }
    const auto& view = plan::Sortierung;
    const auto& run = plan::Progress;
    const auto& info = plan::Info;
    for (const auto& [one, other] :
        {std::pair(view[0], view[1]), std::pair(view[1], view[2]), std::pair(run[0], run[1]),
            std::pair(info[1], info[2]), std::pair(info[3], info[4]), std::pair(info[5], info[6])})
        EXPECT_EQ(one.place.left, other.place.left);
    EXPECT_EQ(run[0].place.width, 0) << "it is sized to its text";
    EXPECT_EQ(run[1].place.top, run[2].place.top);
    EXPECT_EQ(info[1].place.width, info[2].place.width);
    EXPECT_LE(plan::Tableau[0].place.bottom(), plan::Shapes[3].place.top);
    EXPECT_EQ(3 * plan::StartInterval, 1500) << "how long the splash stays, in milliseconds";
}

TEST(Layout, TheTableIsEven) {
    const auto& cells = plan::TableauCells;
    for (const auto& [grid, pitch, gap] :
        {std::tuple(plan::PadCells, 300, 0), std::tuple(cells, 540, 60)}) {
        EXPECT_EQ(twiceMiddle(grid[0].place), twiceMiddle(grid[2].place));
        EXPECT_LE(grid[0].place.bottom(), grid[1].place.top + Pixel);
        for (int n = 1; n <= 36; ++n) {
            const auto& [number, place] = grid[static_cast<std::size_t>(n)];
            const Rect& one = grid[1].place;
            const int dozen = (n - 1) / 12;
            EXPECT_EQ(number, n);
            EXPECT_EQ(place,
                (Rect{one.left + (n - 1) % 3 * pitch, one.top + (n - 1) / 3 * pitch + dozen * gap,
                    one.width, one.width}));
        }
    }
    const Rect& pad = plan::Eingabe[3].place;
    EXPECT_EQ(twiceMiddle(plan::PadCells[2].place), pad.width);
    EXPECT_EQ(plan::PadCells[0].place.top + plan::PadCells[36].place.bottom(), pad.height);
    const auto cell = [&](int n) { return cells[static_cast<std::size_t>(n)].place; };
    for (std::size_t n = 0; n <= 36; ++n) {
        EXPECT_EQ(plan::Badges[n].number, static_cast<int>(n));
        EXPECT_EQ(plan::Badges[n].place,
            (Rect{n == 0 ? cell(2).left : cells[n].place.left, cells[n].place.top, 495, 495}));
    }
    std::map<std::pair<Name, int>, Rect> labels;
    for (const auto& label : plan::CounterLabels)
        labels[{label.name, label.index}] = label.place;
    const int gap = cell(2).left - cell(1).right();
    for (int i = 1; i <= 12; ++i)
        EXPECT_EQ((labels[{Name::XPLabel_TVP, i}]),
            (Rect{cell(1).left - gap - 1335, cell(3 * i).top, 1335, 495}));
    for (int i = 1; i <= 11; ++i) {
        const auto numbers = support::members("TVS", i);
        const Rect lower = cell(*numbers.rbegin());
        EXPECT_EQ((labels[{Name::XPLabel_TVS, i}]),
            (Rect{lower.right() + gap, lower.top - 300, 1335, 495}));
    }
    const int axis = twiceMiddle(cell(2));
    for (const auto& [one, other] :
        {std::pair(Name::XPLabel_Ps, Name::XPLabel_M), std::pair(Name::XPLabel_P, Name::XPLabel_I),
            std::pair(Name::XPLabel_N, Name::XPLabel_R)}) {
        EXPECT_EQ((twiceMiddle(labels[{one, 0}]) + twiceMiddle(labels[{other, 0}])), 2 * axis);
        EXPECT_LE(std::abs(labels[{one, 0}].top - labels[{other, 0}].top), 60);
    }
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ((labels[{Name::XPLabel_K, i}].left), cell(i).left);
    for (const auto& [shape, filled, fill, border] : plan::Shapes) {
        EXPECT_EQ(twiceMiddle(shape), axis);
        EXPECT_EQ(border, !filled ? 8 : fill == controls::Black ? 1 : 3);
    }
    // The lines carry the outlines on, below, and part what they enclose.
    const Rect& outline = plan::Shapes[0].place;
    for (const auto& [x1, y1, x2, y2, width] : plan::Lines) {
        EXPECT_TRUE(outline.left <= x1 && x1 <= x2 && x2 <= outline.right());
        EXPECT_TRUE(std::min(y1, y2) >= outline.bottom() - Pixel && std::max(y1, y2) < 9000);
        EXPECT_EQ(width, x1 == x2 && x1 > outline.left && x1 < 6600 ? 4 : 8);
        EXPECT_TRUE(x1 == x2 || x2 - x1 > 1700) << "upright, or over half the table's width";
    }
}

} // namespace
