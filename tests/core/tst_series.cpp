// SPDX-License-Identifier: MIT
// The random series: what may be typed, how much is drawn and what is shown meanwhile.
#include "files/random.h"
#include "progress/long_run.h"
#include "support/stage.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using support::Stage;

TEST(Series, KeysThatReachTheBox) {
    Stage stage;
    for (int code = -7; code < 300; ++code) {
        const bool passes = (code >= '0' && code <= '9') || code == 8 || code == 13;
        EXPECT_EQ(stage.key(code), passes ? code : 0) << code;
    }
    stage.main.Text[0].Text = "3";
    for (const int code : {97, 13}) {
        auto key = static_cast<std::int16_t>(code);
        Frm_Main::Text_KeyPress(stage.program, stage.platform, 1, key);
        EXPECT_EQ(key, code);
    }
    EXPECT_EQ(stage.main.Coup, 0) << "Enter in a marking box draws nothing";
}

TEST(Series, HowMuchIsDrawn) {
    constexpr int TooMuch = -1;
    for (const auto& [text, count] :
        std::vector<std::pair<std::string, int>>{{"", 0}, {"0", 0}, {"5000", 5000}, {"007", 7},
            {"12abc", 12}, {"  4", 4}, {"abc", 0}, {"-5", 0}, {"+6", 0}, {"2.5", 2}, {"2.9", 3},
            {".9", 0}, {"2147483648", TooMuch}, {"99999999999abc", TooMuch}}) {
        SCOPED_TRACE(text);
        Stage stage;
        stage.click(1);
        stage.main.Text[0].Text = text;
        const auto before = support::state(stage.program);
        stage.draw(text);
        EXPECT_EQ(stage.dialogs.messages.size(), count == TooMuch ? 1U : 0U);
        if (count == TooMuch) {
            EXPECT_EQ(support::difference(support::state(stage.program), before), "");
            EXPECT_NE(stage.dialogs.messages[0].text.find("2.147.483.647"), std::string::npos);
            continue;
        }
        EXPECT_EQ(stage.main.Coup, 1 + count);
        const auto& scroll = stage.main.Grid[0].ScrollRow();
        EXPECT_TRUE(
            scroll.count == 2 && scroll.row == stage.main.Coup && stage.main.focusRequests == 1);
        EXPECT_TRUE(stage.main.Enabled && !stage.program.Frm_Progressbar.Visible);
    }
    Stage stage;
    const forms::ProgressForm& run = stage.program.Frm_Progressbar;
    stage.events.onTurn = [&] { Frm_Progressbar::xpButton_Click(stage.program); };
    stage.draw("2147483647");
    EXPECT_TRUE(stage.events.turns == 1 && run.Abbruch == 0);
    EXPECT_TRUE(stage.main.Coup > 0 && stage.main.Coup < 100'000);
}

TEST(Series, StatusTexts) {
    for (const auto& [i, n, percent] : {std::tuple(1, 3, 33), {2, 3, 67}, {3, 3, 100}, {1, 8, 12},
             {3, 8, 38}, {1, 200, 0}, {3, 200, 2}, {23, 40, 57}, // a hair below 57.5
             {1'000'000'000, 2'147'483'647, 47}})
        EXPECT_EQ(progress::statusText({41, n, i}),
            support::joined(" Status: Berechne 41 / ", n, " (", percent, " %)"));
    EXPECT_EQ(progress::statusText({}), "");
    Stage stage;
    const forms::ProgressForm& run = stage.program.Frm_Progressbar;
    stage.draw("2");
    std::string shown;
    stage.events.onTurn = [&] {
        shown = progress::statusText(run.Lbl_Status);
        EXPECT_EQ(run.xpProgress.Value, static_cast<double>(run.Lbl_Status.step));
    };
    stage.draw("3");
    EXPECT_EQ(shown, " Status: Berechne 5 / 3 (100 %)");
    EXPECT_TRUE(run.Lbl_Status.step == 0 && run.xpProgress.Max == 0) << "the next run starts empty";
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

TEST(Series, NoSeriesIsTheLastOneAgain) {
    Stage stage;
    stage.clock.step = {};
    stage.draw("300");
    stage.draw("300");
    const auto all = support::numbers(stage.program);
    EXPECT_FALSE(std::equal(all.begin(), all.begin() + 300, all.begin() + 300));
    stage.reset();
    stage.clock.time += std::chrono::nanoseconds(1);
    stage.program.random = 0;
    stage.draw("600");
    EXPECT_NE(support::numbers(stage.program), all) << "the clock is mixed in";
}

} // namespace
