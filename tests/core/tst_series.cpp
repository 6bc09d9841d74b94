// SPDX-License-Identifier: MIT
// The random series: what may be typed, how much is drawn, what is shown meanwhile, and whether the
// draws are as good as a wheel's.
#include "files/random.h"
#include "progress/long_run.h"
#include "stats/leading_number.h"
#include "support/stage.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Stage;

TEST(Series, KeysThatReachTheBox) {
    Stage stage;
    for (int code = 1; code < 1000; ++code) {
        const bool passes = (code >= '0' && code <= '9') || code == 8 || code == 13;
        EXPECT_EQ(stage.key(code), passes ? code : 0) << code;
    }
    EXPECT_EQ(stage.key(-7), 0);
    std::int16_t letter = 'a';
    Frm_Main::Text_KeyPress(stage.program, stage.platform, 1, letter);
    EXPECT_EQ(letter, 'a');
    std::int16_t enter = 13;
    stage.main.Text[0].Text = "3";
    Frm_Main::Text_KeyPress(stage.program, stage.platform, 2, enter);
    EXPECT_EQ(stage.main.Coup, 0) << "Enter in a marking box draws nothing";
}

TEST(Series, HowMuchIsDrawn) {
    for (const auto& [text, count] : std::vector<std::pair<std::string, int>>{{"", 0}, {"0", 0},
             {"3", 3}, {"5000", 5000}, {"007", 7}, {"12abc", 12}, {"  4", 4}, {"abc", 0}, {"-5", 0},
             {"+6", 0}, {"2.5", 2}, {"2.9", 3}, {".9", 0}, {"00000000000000000001", 1}}) {
        Stage stage;
        stage.click(1);
        const auto scrolls = stage.main.Grid[0].ScrollRow().count;
        stage.draw(text);
        EXPECT_EQ(stage.main.Coup, 1 + count) << "'" << text << "'";
        EXPECT_EQ(stage.main.Grid[0].ScrollRow().count, scrolls + 1);
        EXPECT_EQ(stage.main.Grid[0].ScrollRow().row, stage.main.Coup);
        EXPECT_EQ(stage.main.focusRequests, 1U);
        EXPECT_TRUE(stage.main.Enabled && !stage.program.Frm_Progressbar.Visible);
        EXPECT_EQ(stage.main.Text[0].Text, text);
        EXPECT_TRUE(stage.dialogs.messages.empty());
    }
    for (const std::string text : {"2147483648", "99999999999", "99999999999abc"}) {
        Stage stage;
        stage.main.Text[0].Text = text;
        const auto before = support::state(stage.program);
        stage.draw(text);
        EXPECT_EQ(support::difference(support::state(stage.program), before), "");
        ASSERT_EQ(stage.dialogs.messages.size(), 1U);
        EXPECT_NE(stage.dialogs.messages[0].text.find("2.147.483.647"), std::string::npos);
    }
    Stage stage;
    stage.events.onTurn = [&] {
        EXPECT_EQ(stage.program.Frm_Progressbar.xpProgress.Max, 2147483647.0);
        Frm_Progressbar::xpButton_Click(stage.program);
    };
    stage.draw("2147483647");
    EXPECT_EQ(stage.events.turns, 1);
    EXPECT_TRUE(stage.main.Coup > 0 && stage.main.Coup < 100'000);
    EXPECT_EQ(stage.program.Frm_Progressbar.Abbruch, 0);
    EXPECT_EQ(stats::leadingNumber(std::string_view("1234", 2)), 12) << "behind the text's end";
}

TEST(Series, StatusTexts) {
    const auto percent = [](std::int64_t i, std::int64_t n, std::int64_t p) {
        EXPECT_EQ(progress::statusText({41, n, i}),
            " Status: Berechne 41 / " + std::to_string(n) + " (" + std::to_string(p) + " %)")
            << i << " of " << n;
    };
    percent(1, 3, 33);
    percent(2, 3, 67);
    percent(3, 3, 100);
    percent(2, 8, 25);
    percent(1, 8, 12); // 12.5
    percent(3, 8, 38); // 37.5
    percent(1, 200, 0); // 0.5
    percent(3, 200, 2); // 1.5
    percent(23, 40, 57); // a hair below 57.5 as a double
    percent(1, 100, 1);
    percent(1'000'000'000, 2'147'483'647, 47);
    EXPECT_EQ(progress::statusText({}), "");
    Stage stage;
    stage.draw("2");
    std::string shown;
    stage.events.onTurn = [&] {
        const forms::ProgressForm& run = stage.program.Frm_Progressbar;
        shown = progress::statusText(run.Lbl_Status);
        EXPECT_EQ(run.xpProgress.Value, static_cast<double>(run.Lbl_Status.step));
    };
    stage.draw("3");
    EXPECT_EQ(shown, " Status: Berechne 5 / 3 (100 %)");
    stage.events.onTurn = [&] { EXPECT_EQ(stage.main.Enabled, false); };
    stage.draw("9000");
    EXPECT_EQ(stage.program.Frm_Progressbar.Lbl_Status.step, 0) << "the next run starts empty";
    EXPECT_EQ(stage.program.Frm_Progressbar.xpProgress.Max, 0);
}

TEST(Series, TurnsComeEightMillisecondsAfterTheEndOfTheLastOne) {
    Stage stage;
    stage.clock.step = {};
    stage.events.onTurn = stage.events.onPaint
        = [&] { stage.clock.time += std::chrono::milliseconds(100); };
    progress::Pace pace(stage.platform);
    for (const int turns : {1, 2}) {
        stage.clock.time += std::chrono::nanoseconds(7'999'999);
        pace.paint();
        EXPECT_FALSE(pace.turn());
        EXPECT_EQ(stage.events.paints, turns - 1);
        stage.clock.time += std::chrono::nanoseconds(1);
        EXPECT_TRUE(pace.turn());
        EXPECT_FALSE(pace.turn());
        stage.clock.time += std::chrono::milliseconds(8);
        pace.paint();
        EXPECT_EQ(std::pair(stage.events.turns, stage.events.paints), std::pair(turns, turns));
    }
}

TEST(Series, ADrawIsAFloatTimesThirtySevenRoundedDown) {
    int wrong = 0;
    for (std::uint32_t draw = 0; draw < 1U << 24; ++draw) {
        const float x = static_cast<float>(draw) * 0x1p-24F;
        wrong += files::toNumber(draw) != static_cast<int>(static_cast<double>(x) * 37.0);
    }
    EXPECT_EQ(wrong, 0);
}

TEST(Series, DrawsAreEvenAndDontFollowEachOther) {
    using std::chrono::nanoseconds;
    const std::vector<std::function<std::int64_t(int)>> clocks{
        [](int) { return 0; }, // a clock that stands still
        [](int i) { return 1'000'000'000 + 70LL * i; },
        [](int i) { return 15'625'000LL * (i / 50'000); }, // a coarse clock's ticks
    };
    for (const auto& clock : clocks) {
        constexpr int Draws = 1'000'000;
        std::vector<double> single(37);
        std::vector<double> pairs(37 * 37);
        std::uint64_t state = 0;
        std::size_t before = 0;
        std::uint32_t lowest = 1U << 24;
        std::uint32_t highest = 0;
        for (int i = 0; i < Draws; ++i) {
            files::seed(state, nanoseconds(clock(i)));
            const std::uint32_t draw = files::draw(state);
            lowest = std::min(lowest, draw);
            highest = std::max(highest, draw);
            const auto number = static_cast<std::size_t>(files::toNumber(draw));
            ++single.at(number);
            ++pairs.at(37 * before + number);
            before = number;
        }
        const auto chiSquare = [](const std::vector<double>& counts) {
            const double mean = static_cast<double>(Draws) / static_cast<double>(counts.size());
            double sum = 0;
            for (const double count : counts)
                sum += (count - mean) * (count - mean) / mean;
            return sum;
        };
        // Means 36 and 1368; the bounds lie beyond six standard deviations. Too even is a fault
        // too.
        EXPECT_LT(chiSquare(single), 100);
        EXPECT_GT(chiSquare(single), 6);
        EXPECT_LT(chiSquare(pairs), 1690);
        EXPECT_GT(chiSquare(pairs), 1060);
        // A ten-thousandth of all 2^24 draws.
        EXPECT_TRUE(lowest < 1678 && highest < 1U << 24 && highest > (1U << 24) - 1678);
    }
    Stage stage;
    stage.clock.step = {};
    stage.draw("300");
    stage.draw("300");
    const auto all = support::numbers(stage.program);
    EXPECT_EQ(stage.events.turns, 0);
    EXPECT_EQ(std::set<int>(all.begin(), all.end()).size(), 37U);
    EXPECT_FALSE(std::equal(all.begin(), all.begin() + 300, all.begin() + 300));
    stage.reset();
    stage.clock.time += std::chrono::nanoseconds(1);
    stage.program.random = 0;
    stage.draw("600");
    EXPECT_NE(support::numbers(stage.program), all) << "the clock is mixed in";
}

} // namespace
