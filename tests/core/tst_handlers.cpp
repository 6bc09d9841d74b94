// SPDX-License-Identifier: MIT
// The event handlers: start and end of the program, marking, and that nothing gets in while a form
// is closed to input.
#include "progress/long_run.h"
#include "support/reference.h"
#include "support/stage.h"

#include <gtest/gtest.h>

namespace {

using support::Stage;

/// Everything that a user, or a press from outside the window system, can set off on the main form.
const std::vector<std::pair<const char*, std::function<void(Stage&)>>> Presses{
    {"pad", [](Stage& s) { s.click(4); }},
    {"undo", [](Stage& s) { s.undo(); }},
    {"reset", [](Stage& s) { s.reset(); }},
    {"load", [](Stage& s) { s.button(2); }},
    {"save", [](Stage& s) { s.button(3); }},
    {"clear 1", [](Stage& s) { s.button(4); }},
    {"clear 2", [](Stage& s) { s.button(5); }},
    {"menu load", [](Stage& s) { Frm_Main::M_Laden_Click(s.program, s.platform); }},
    {"menu save", [](Stage& s) { Frm_Main::M_Speichern_Click(s.program, s.platform); }},
    {"menu reset", [](Stage& s) { Frm_Main::M_Reset_Click(s.program, s.platform); }},
    {"menu end", [](Stage& s) { Frm_Main::M_Beenden_Click(s.program, s.platform); }},
    {"menu info", [](Stage& s) { Frm_Main::M_Info_Click(s.program, s.platform); }},
    {"mode", [](Stage& s) { s.check(0); }},
    {"lines", [](Stage& s) { s.check(1); }},
    {"family", [](Stage& s) { s.family(3); }},
    {"mark 1", [](Stage& s) { Frm_Main::Text_Click(s.program, s.platform, 1); }},
    {"mark 2", [](Stage& s) { Frm_Main::Text_Click(s.program, s.platform, 2); }},
    {"text", [](Stage& s) { Frm_Main::Text_Change(s.program, s.platform, 0, "99"); }},
    {"Enter", [](Stage& s) { s.key(13); }},
};

/// Sets off everything and holds that it leaves no trace.
void pressAll(Stage& stage) {
    const auto before = support::state(stage.program);
    const auto asked = stage.dialogs.asked.size();
    const auto turns = stage.events.turns;
    for (const auto& [name, press] : Presses) {
        press(stage);
        ASSERT_EQ(support::difference(support::state(stage.program), before), "") << name;
        ASSERT_EQ(stage.dialogs.asked.size(), asked) << name;
        ASSERT_TRUE(stage.media.commands.empty() && stage.processes.ends == 0) << name;
        ASSERT_EQ(stage.events.turns, turns) << name;
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
    for (const auto& [name, press] : Presses) {
        Stage stage;
        prepare(stage);
        const auto before = support::state(stage.program);
        const auto asked = stage.dialogs.asked.size();
        press(stage);
        EXPECT_TRUE(support::state(stage.program) != before || stage.dialogs.asked.size() > asked)
            << name << " does nothing, so its refusal would prove nothing";
    }
    for (const auto close : {&forms::MainForm::Enabled, &forms::MainForm::loaded}) {
        Stage stage;
        prepare(stage);
        stage.main.*close = false;
        pressAll(stage);
    }
}

TEST(Handlers, NothingGetsInDuringARun) {
    using Run = std::function<void(Stage&)>;
    int looks = 0;
    for (const Run& run :
        {Run([](Stage& s) { s.draw("5"); }), Run([](Stage& s) { s.load("1\n2\n"); }),
            Run([](Stage& s) { s.family(6); }), Run([](Stage& s) { s.check(0); })}) {
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
        run(stage);
        EXPECT_TRUE(stage.main.Enabled && !stage.main.inHandler);
        EXPECT_EQ(stage.processes.ends, 0);
    }
    EXPECT_GE(looks, 5);
}

TEST(Handlers, UndoGoesBackToTheEmptyPermanenceAndNoFurther) {
    Stage stage;
    support::Reference reference;
    for (const std::vector<int>& numbers : {std::vector{0, 36, 17}, std::vector{5, 6}}) {
        for (const int number : numbers) {
            stage.click(number);
            reference.coup(number);
            EXPECT_EQ(stage.main.Grid[0].ScrollRow().row, stage.main.Coup);
        }
        for (std::size_t i = 0; i <= numbers.size(); ++i) {
            stage.undo();
            reference.undo();
            EXPECT_EQ(
                support::difference(support::picture(stage.program), reference.picture()), "");
        }
        EXPECT_EQ(stage.main.Coup, 0);
    }
}

TEST(Handlers, AResortHoldsInputBackAndCantBeCancelled) {
    for (const bool byFamily : {true, false}) {
        Stage stage;
        stage.draw("9000");
        const auto numbers = support::numbers(stage.program);
        const auto [coup, plein] = std::pair(stage.main.Coup, stage.main.Plein);
        stage.events = {};
        std::vector<std::string> shown;
        stage.events.onPaint = [&] {
            const forms::ProgressForm& run = stage.program.Frm_Progressbar;
            shown.push_back(progress::statusText(run.Lbl_Status));
            EXPECT_TRUE(run.Visible && !run.xpButton.Enabled);
            EXPECT_EQ(run.xpProgress.Max, 9000);
            EXPECT_EQ(stage.main.Plein, numbers[static_cast<std::size_t>(stage.main.Coup) - 1]);
            EXPECT_EQ(stage.main.Enabled, !byFamily);
            Frm_Progressbar::xpButton_Click(stage.program);
            EXPECT_EQ(run.Abbruch, 0);
        };
        byFamily ? stage.family(2) : stage.check(0);
        EXPECT_EQ(stage.events.turns, 0);
        ASSERT_GE(shown.size(), 3U);
        EXPECT_EQ(shown.back(), " Status: Berechne 9000 / 9000 (100 %)");
        EXPECT_EQ(std::pair(stage.main.Coup, stage.main.Plein), std::pair(coup, plein));
        EXPECT_EQ(stage.main.focusRequests, byFamily ? 2U : 1U);
        EXPECT_EQ(support::numbers(stage.program), numbers);
        const auto paints = stage.events.paints;
        if (byFamily)
            stage.family(2); // the same entry again
        EXPECT_EQ(stage.events.paints, paints);
    }
    Stage empty;
    empty.family(6);
    EXPECT_EQ(empty.main.focusRequests, 1U);
    EXPECT_EQ(empty.events.paints, 0);
    EXPECT_EQ(empty.main.Grid[0].Width, 5610);
}

TEST(Handlers, StartAndShutdown) {
    Stage stage;
    stage.program = {};
    Frm_Start::Form_Load(stage.program);
    stage.click(3);
    EXPECT_EQ(stage.main.Coup, 0) << "there is no main window yet";
    for (const bool shown : {false, false, true}) {
        Frm_Start::Timer1_Timer(stage.program);
        EXPECT_EQ(stage.main.Visible, shown);
        EXPECT_EQ(stage.program.Frm_Start.Visible, !shown);
        EXPECT_EQ(stage.program.Frm_Start.timer1Enabled, !shown);
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
        EXPECT_EQ(stage.processes.ends, 1);
        EXPECT_FALSE(stage.main.loaded || stage.program.Frm_Progressbar.Visible);
        EXPECT_EQ(stage.main.Coup, 0);
        EXPECT_EQ(stage.files.openReaders, 0);
        EXPECT_TRUE(stage.dialogs.messages.empty());
    }
}

TEST(Handlers, AnswersToTheMarkingPrompt) {
    const std::vector<std::pair<std::string, std::string>> answers{{"0", "0"}, {"1000", "1000"},
        {"1000.5", "1000"}, {"1000.6", "refused"}, {"1001", "refused"}, {"-1", "refused"},
        {"-0.5", "0"}, {"-0.6", "refused"}, {"99999999999", "refused"}, {"65536", "refused"},
        {"-65535", "refused"}, {std::string(400, '9'), "refused"}, {"abc", "0"}, {"", "0"},
        {"2.5", "2"}, {"2.51", "3"}, {"3.5", "4"}, {"2,9", "2"}, {"0x10", "0"}, {"inf", "0"},
        {"nan", "0"}, {"1e3", "1"}, {"  7", "7"}, {"+8", "8"}, {"7 mal", "7"}, {".5", "0"},
        {"1.", "1"}, {".", "0"}, {"-", "0"}, {"0." + std::string(400, '0') + "1", "0"}};
    for (const int box : {1, 2})
        for (const auto& [answer, wanted] : answers) {
            Stage stage;
            support::Reference reference;
            stage.mark(box, "5");
            reference.mark(box, 5);
            for (const int number : {7, 7, 0}) {
                stage.click(number);
                reference.coup(number);
            }
            stage.mark(box, answer);
            if (wanted == "refused")
                reference.clearMark(box);
            else
                reference.mark(box, std::stoi(wanted));
            EXPECT_EQ(support::difference(support::picture(stage.program), reference.picture()), "")
                << "'" << answer << "'";
            const support::Message message{"Fehler",
                "Ungültiger Wert! Bitte versuchen Sie es nochmal!", platform::Icon::Critical};
            EXPECT_EQ(stage.dialogs.messages,
                std::vector<support::Message>(wanted == "refused" ? 1 : 0, message))
                << "'" << answer << "'";
            EXPECT_EQ(stage.dialogs.asked.back(),
                std::string(box == 1 ? "Pleins genau markieren!" : "Pleins mind. markieren!")
                    + "|Bitte geben Sie einen Wert von 0-1000 ein!");
            stage.undo();
            reference.undo();
            EXPECT_EQ(
                support::difference(support::picture(stage.program), reference.picture()), "");
        }
    Stage stage;
    stage.mark(0, "5");
    EXPECT_TRUE(stage.dialogs.asked.empty());
    const auto before = support::state(stage.program);
    stage.button(6);
    EXPECT_EQ(support::difference(support::state(stage.program), before), "");
}

} // namespace
