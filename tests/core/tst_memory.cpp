// SPDX-License-Identifier: MIT
// Memory that gives out: at every single allocation in turn. The whole coups stay, the two grids
// stay equal, a message comes, and the program goes on.
#include "support/stage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

constexpr std::int64_t Off = -1;
std::int64_t failAfter = Off; ///< allocations that still succeed before one fails
bool failed = false;

} // namespace

void* operator new(std::size_t size) {
    const bool fails = failAfter != Off && failAfter-- == 0;
    failed = failed || fails;
    void* block = fails ? nullptr : std::malloc(size);
    return block != nullptr ? block : throw std::bad_alloc();
}
void* operator new[](std::size_t size) { // a sanitizer has one of its own
    return operator new(size);
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    operator delete(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    operator delete(block);
}
void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

namespace {

using support::Stage;

using Action = std::function<void(Stage&)>;

/// What must hold after memory gave out in an action, and that the program goes on from there.
/// `told` is whether the user must be told.
void holds(Stage& stage, const std::vector<int>& before, bool told) {
    const forms::MainForm& form = stage.main;
    const auto all = support::numbers(stage.program);
    ASSERT_EQ(stage.dialogs.messages.size(), told ? 1U : 0U);
    for (const support::Message& message : stage.dialogs.messages)
        EXPECT_NE(message.text.find("Der Arbeitsspeicher reicht nicht aus."), std::string::npos);
    ASSERT_TRUE(form.Enabled && !form.inHandler && !stage.program.Frm_Progressbar.Visible);
    ASSERT_TRUE(form.Grid[0].RowCount() == form.Coup && form.Grid[1].RowCount() == form.Coup);
    ASSERT_TRUE(
        all.size() >= before.size() && std::equal(before.begin(), before.end(), all.begin()));
    ASSERT_TRUE(all.empty() || form.Plein == all.back());
    // The same coups again in a fresh program, then an undo and a coup in both.
    std::string text;
    for (const int number : all)
        text += std::to_string(number) + "\n";
    Stage other;
    for (Stage* each : {&stage, &other}) {
        if (each == &other)
            other.load(text);
        each->undo();
        each->click(36);
        each->family(6);
        each->family(4);
        if (each->main.Check[0].Value != 0)
            each->check(0);
    }
    ASSERT_EQ(
        support::difference(support::picture(stage.program), support::picture(other.program)), "");
}

/// Lets allocation 0, `stride`, 2 * `stride` ... of `action` fail, each in a fresh program.
void failEverywhere(
    std::int64_t stride, const Action& prepare, const Action& action, bool told = true) {
    for (std::int64_t at = 0;; at += stride) {
        Stage stage;
        prepare(stage);
        const auto before = support::numbers(stage.program);
        failed = false;
        failAfter = at;
        action(stage);
        failAfter = Off;
        if (!failed) {
            EXPECT_GT(at, 0) << "the action takes no memory, so nothing was tried";
            return;
        }
        SCOPED_TRACE("allocation " + std::to_string(at));
        ASSERT_NO_FATAL_FAILURE(holds(stage, before, told));
    }
}

TEST(Memory, AnyAllocationMayFail) {
    std::string all;
    for (int n = 0; n <= 36; ++n)
        all += std::to_string(n) + "\n";
    failEverywhere(
        3, [](Stage&) {},
        [](Stage& s) {
            for (const int number : {0, 5, 6})
                if (!failed)
                    s.click(number);
        });
    failEverywhere(
        101, [](Stage& s) { s.main.Text[0].Text = "90"; }, [](Stage& s) { s.key(13); });
    const Action chosen = [&](Stage& s) {
        s.files.content["d"] = all;
        s.dialogs.chosen = "d";
        s.click(5);
    };
    failEverywhere(31, chosen, [](Stage& s) { s.button(2); });
    const Action manyRows = [&](Stage& s) {
        std::string text;
        for (int i = 0; i < 4200; ++i) // more than a block, and new patterns behind it
            text += "5\n";
        s.load(text + all + "17\n");
    };
    failEverywhere(
        509, manyRows, [](Stage& s) { s.family(6); }, false);
    failEverywhere(
        509, manyRows, [](Stage& s) { s.check(0); }, false);
    const std::string typed(99, '1');
    failEverywhere(
        1, [](Stage&) {},
        [&](Stage& s) { Frm_Main::Text_Change(s.program, s.platform, 0, typed); });
    Stage stage;
    stage.program.Frm_Info.Visible = true;
    stage.registry.values[R"(SOFTWARE\Microsoft\Shared Tools\MSINFO|PATH)"] = {1, typed};
    failAfter = 0;
    Frm_Info::cmdSysInfo_Click(stage.program, stage.platform);
    failAfter = Off;
    EXPECT_EQ(stage.dialogs.messages.size(), 1U);
    EXPECT_TRUE(stage.processes.started.empty() && !stage.program.Frm_Info.inHandler);
}

// Many systems promise memory that they don't have, so a run looks ahead.
TEST(Memory, LookingAheadSpeaksOnlyOfWhatARunStillNeeds) {
    constexpr std::uint64_t Little = 200 << 20;
    Stage fits;
    fits.processes.left = Little;
    fits.load("1\n2\n");
    fits.draw("9000"); // more than a block, so that there are turns amid the run
    EXPECT_EQ(fits.main.Coup, 9002);
    fits.processes.left = 0;
    fits.draw("1"); // nothing is needed behind the last coup
    EXPECT_EQ(fits.main.Coup, 9003);
    fits.events.onTurn = [&] { fits.program.Frm_Progressbar.Abbruch = 1; };
    fits.draw("9000");
    EXPECT_TRUE(fits.dialogs.messages.empty());

    Stage tooLong;
    tooLong.processes.left = Little;
    tooLong.draw("200000000"); // at least two bytes each
    EXPECT_EQ(tooLong.dialogs.messages.size(), 1U);
    EXPECT_GT(tooLong.main.Coup, 0);
    const std::uint64_t scrolls = tooLong.main.Grid[0].ScrollRow().count;
    tooLong.files.blockSize = 4;
    tooLong.processes.left = 1;
    tooLong.load("1\n2\n3\n4\n");
    EXPECT_EQ(tooLong.dialogs.messages.size(), 2U) << "what has been read doesn't fit";
    EXPECT_EQ(tooLong.main.Grid[0].ScrollRow().count, scrolls);
}

TEST(Memory, AStartThatFailsSucceedsAtTheNextTick) {
    failed = true;
    for (std::int64_t at = 0; failed; at += 101) {
        Stage stage;
        stage.program = {};
        failed = false;
        for (int tick = 1; tick <= (failed ? 4 : 3); ++tick) {
            failAfter = tick == 3 ? at : Off;
            try {
                Frm_Start::Timer1_Timer(stage.program);
            } catch (const std::bad_alloc&) { }
            failAfter = Off;
        }
        ASSERT_EQ(stage.program.Frm_Start.Ticks, failed ? 4 : 3);
        ASSERT_NO_FATAL_FAILURE(holds(stage, {}, false));
    }
}

} // namespace
