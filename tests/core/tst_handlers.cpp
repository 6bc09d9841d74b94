// SPDX-License-Identifier: MIT
// The event handlers: start and end of the program, marking, and that nothing gets in while a form
// is closed to input.
#include "progress/long_run.h"
#include "support/stage.h"

#include <gtest/gtest.h>

namespace {

using support::Stage;
using namespace std::string_literals;

/// Everything that a user, or a press from outside the window system, can set off on the main form.
const std::vector<std::function<void(Stage&)>> Presses{
    [](Stage& s) { s.click(4); },
    [](Stage& s) { s.undo(); },
    [](Stage& s) { s.reset(); },
    [](Stage& s) { s.button(2); },
    [](Stage& s) { s.button(3); },
    [](Stage& s) { s.button(4); },
    [](Stage& s) { s.button(5); },
    [](Stage& s) { Frm_Main::M_Laden_Click(s.program, s.platform); },
    [](Stage& s) { Frm_Main::M_Speichern_Click(s.program, s.platform); },
    [](Stage& s) { Frm_Main::M_Reset_Click(s.program, s.platform); },
    [](Stage& s) { Frm_Main::M_Beenden_Click(s.program, s.platform); },
    [](Stage& s) { Frm_Main::M_Info_Click(s.program, s.platform); },
    [](Stage& s) { s.check(0); },
    [](Stage& s) { s.check(1); },
    [](Stage& s) { s.family(3); },
    [](Stage& s) { Frm_Main::Text_Click(s.program, s.platform, 1); },
    [](Stage& s) { Frm_Main::Text_Change(s.program, s.platform, 0, "99"); },
    [](Stage& s) { s.key(13); },
};

/// Sets off everything and holds that it leaves no trace.
void pressAll(Stage& stage) {
    const auto before = support::state(stage.program);
    const auto asked = stage.dialogs.asked.size();
    const auto turns = stage.events.turns;
    for (std::size_t i = 0; i < Presses.size(); ++i) {
        Presses[i](stage);
        ASSERT_EQ(support::difference(support::state(stage.program), before), "") << i;
        ASSERT_TRUE(stage.dialogs.asked.size() == asked && stage.media.commands.empty()
            && stage.processes.ends == 0 && stage.events.turns == turns)
            << i;
    }
}

/// A program in which every press would do something.
void prepare(Stage& stage) {
    for (const int number : {7, 0, 7})
        stage.click(number);
    stage.mark(1, "2");
    stage.mark(2, "1");
    stage.files.content["datei.txt"] = "1\n2\n";
    stage.dialogs.chosen = "datei.txt";
    stage.main.Text[0].Text = "5";
}

TEST(Handlers, EveryPressActsOnAnOpenFormAndNoneOnAClosedOne) {
    for (std::size_t i = 0; i < Presses.size(); ++i) {
        Stage stage;
        prepare(stage);
        const auto before = support::state(stage.program);
        Presses[i](stage);
        EXPECT_TRUE(support::state(stage.program) != before || stage.dialogs.asked.size() > 2)
            << i << " does nothing, so its refusal would prove nothing";
    }
    for (const auto close : {&forms::MainForm::Enabled, &forms::MainForm::loaded}) {
        Stage stage;
        prepare(stage);
        stage.main.*close = false;
        pressAll(stage);
    }
}

TEST(Handlers, NothingGetsInDuringARun) {
    int looks = 0;
    for (int run = 0; run < 4; ++run) {
        Stage stage;
        prepare(stage);
        stage.events.onTurn = stage.events.onPaint = [&] {
            ++looks;
            pressAll(stage);
        };
        stage.dialogs.onQuestion = [&] {
            stage.dialogs.onQuestion = {};
            pressAll(stage);
        };
        run == 0       ? stage.draw("5")
            : run == 1 ? stage.load("1\n2\n")
            : run == 2 ? stage.family(6)
                       : stage.check(0);
        EXPECT_TRUE(stage.main.Enabled && !stage.main.inHandler && stage.processes.ends == 0);
    }
    EXPECT_GE(looks, 5);
}

TEST(Handlers, AResortHoldsInputBackAndCantBeCancelled) {
    for (const bool byFamily : {true, false}) {
        Stage stage;
        stage.draw("20000");
        const auto numbers = support::numbers(stage.program);
        const forms::MainForm& form = stage.main;
        const auto [coup, plein] = std::pair(form.Coup, form.Plein);
        stage.events = {};
        std::string shown;
        stage.events.onPaint = [&] {
            const forms::ProgressForm& run = stage.program.Frm_Progressbar;
            shown = progress::statusText(run.Lbl_Status);
            EXPECT_EQ(form.Plein, numbers[static_cast<std::size_t>(form.Coup) - 1]);
            EXPECT_EQ(form.Enabled, !byFamily);
            Frm_Progressbar::xpButton_Click(stage.program);
            EXPECT_TRUE(run.Visible && !run.xpButton.Enabled && run.xpProgress.Max == 20000
                && run.Abbruch == 0);
            // Rows not yet reached keep their old marks.
            for (std::int64_t row = 1; row <= 20000; row += row < 20 ? 1 : 61) {
                const bool done = row <= form.Coup;
                const auto wanted = support::marks(byFamily && done ? 5 : 0, !byFamily && done,
                    numbers[static_cast<std::size_t>(row - 1)]);
                for (int j = 2; j <= 13; ++j)
                    ASSERT_EQ(form.Grid[0].Row(row).Cell(j), wanted[static_cast<std::size_t>(j)])
                        << row;
            }
        };
        byFamily ? stage.family(5) : stage.check(0);
        const auto paints = stage.events.paints;
        EXPECT_TRUE(stage.events.turns == 0 && paints >= 3);
        EXPECT_EQ(shown, " Status: Berechne 20000 / 20000 (100 %)");
        EXPECT_EQ(std::pair(form.Coup, form.Plein), std::pair(coup, plein));
        EXPECT_EQ(form.focusRequests, byFamily ? 2U : 1U);
        EXPECT_EQ(support::numbers(stage.program), numbers);
        stage.family(form.xpCombo[0].ListIndex); // the same entry again
        EXPECT_EQ(stage.events.paints, paints);
    }
    Stage empty;
    empty.family(6);
    EXPECT_TRUE(empty.main.focusRequests == 1 && empty.events.paints == 0);
    EXPECT_EQ(empty.main.Grid[0].Width, 5610);
}

TEST(Handlers, StartAndShutdown) {
    Stage stage;
    stage.program = {};
    const auto& splash = stage.program.Frm_Start;
    Frm_Start::Form_Load(stage.program);
    stage.click(3);
    EXPECT_EQ(stage.main.Coup, 0) << "there is no main window yet";
    for (const bool shown : {false, false, true}) {
        Frm_Start::Timer1_Timer(stage.program);
        EXPECT_TRUE(stage.main.Visible == shown && splash.Visible != shown
            && splash.timer1Enabled != shown);
    }
    stage.click(3);
    Frm_Main::M_Info_Click(stage.program, stage.platform);
    Frm_Main::M_Beenden_Click(stage.program, stage.platform);
    EXPECT_EQ(stage.processes.ends, 1);
    EXPECT_TRUE(!stage.main.loaded && !stage.main.Visible && !stage.program.Frm_Info.loaded);
    EXPECT_EQ(stage.main.Grid[1].RowCount(), 0);
    Frm_Main::Form_Unload(stage.program, stage.platform);
    EXPECT_EQ(stage.processes.ends, 1) << "one shutdown";
    EXPECT_TRUE(stage.dialogs.asked.empty());
}

TEST(Handlers, ClosingInTheMiddleOfARunEndsInOneShutdown) {
    std::string text;
    for (int i = 0; i < 40000; ++i)
        text += "17\n";
    // In the reading phase of a load, in its second phase, and in a series.
    for (const int at : {1, 5, 0}) {
        Stage stage;
        stage.files.blockSize = 40000;
        std::int64_t closedAt = -1;
        stage.events.onTurn = [&] {
            if (stage.events.turns < at)
                return;
            closedAt = std::max(closedAt, stage.main.Coup);
            Frm_Main::Form_Unload(stage.program, stage.platform);
            EXPECT_TRUE(stage.main.loaded && stage.processes.ends == 0) << "the run ends first";
        };
        at > 0 ? stage.load(text) : stage.draw("2000000000");
        EXPECT_EQ(closedAt > 0, at != 1);
        EXPECT_FALSE(stage.main.loaded || stage.program.Frm_Progressbar.Visible);
        EXPECT_TRUE(stage.processes.ends == 1 && stage.main.Coup == 0
            && stage.files.openReaders == 0 && stage.dialogs.messages.empty());
    }
}

TEST(Handlers, AnswersToTheMarkingPrompt) {
    const std::string refused = "refused";
    const std::vector<std::pair<std::string, std::string>> answers{{"0", "0"}, {"1000.5", "1000"},
        {"1000.6", refused}, {"1001", refused}, {"-0.5", "0"}, {"-0.6", refused},
        {"65536", refused}, {"-65535", refused}, {std::string(400, '9'), refused}, {"abc", "0"},
        {"", "0"}, {"2.5", "2"}, {"2.51", "3"}, {"3.5", "4"}, {"2,9", "2"}, {"0x10", "0"},
        {"inf", "0"}, {"1e3", "1"}, {"  7", "7"}, {"+8", "8"}, {"7 mal", "7"}, {".5", "0"},
        {".", "0"}, {"-", "0"}, {"0." + std::string(400, '0') + "1", "0"}};
    const std::vector<support::Message> refusal{
        {"Fehler", "Ungültiger Wert! Bitte versuchen Sie es nochmal!", platform::Icon::Critical}};
    for (const int box : {1, 2})
        for (const auto& [answer, wanted] : answers) {
            SCOPED_TRACE(answer);
            Stage stage;
            support::Reference reference;
            stage.mark(box, "5");
            reference.mark(box, 5);
            stage.mark(box, answer);
            wanted == refused ? reference.clearMark(box) : reference.mark(box, std::stoi(wanted));
            EXPECT_EQ(support::differs(stage.program, reference), "");
            EXPECT_EQ(stage.dialogs.messages,
                wanted == refused ? refusal : std::vector<support::Message>());
            EXPECT_EQ(stage.dialogs.asked.back(),
                "Pleins "s + (box == 1 ? "genau" : "mind.")
                    + " markieren!|Bitte geben Sie einen Wert von 0-1000 ein!");
        }
    Stage stage;
    const auto before = support::state(stage.program);
    stage.mark(0, "5");
    stage.button(6);
    EXPECT_EQ(support::difference(support::state(stage.program), before), "");
    EXPECT_TRUE(stage.dialogs.asked.empty());
}

} // namespace
