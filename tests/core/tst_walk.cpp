// SPDX-License-Identifier: MIT
// Random walks through the program's commands, compared with a plain second program after every
// step: incremental equals worked out anew.
#include "grids/families.h"
#include "grids/sorted_view.h"
#include "support/stage.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using support::Reference;
using support::Stage;

class Walk {
public:
    explicit Walk(unsigned seed) : random_(seed) {
        stage.clock.step = std::chrono::milliseconds(1);
    }

    /// One command to both; gives its number.
    int step() {
        const int command = below(16);
        const int box = 1 + below(2);
        const int value = below(4);
        if (command < 3)
            clicks(1 + below(12));
        else if (command == 3)
            for (int i = value == 0 ? 40 : 1 + below(5); i > 0; --i) { // also beyond the first
                stage.undo();
                reference.undo();
            }
        else if (command == 4 && value == 0 && box == 1) {
            stage.reset();
            reference.reset();
        } else if (command <= 6) {
            const int family = below(grids::Families.size());
            stage.family(family);
            if (family != reference.family)
                reference.choose(family);
        } else if (command == 7) {
            stage.check(0);
            reference.toggleCodes();
        } else if (command == 8) {
            stage.check(1);
            reference.toggleLines();
        } else if (command == 9) {
            stage.mark(box, std::to_string(value));
            reference.mark(box, value);
        } else if (command == 10) {
            stage.button(3 + box);
            reference.clearMark(box);
        } else if (command == 11)
            load();
        else if (command == 12)
            draw();
        else if (!tidy)
            scribble(1 + below(80));
        return command;
    }

    Stage stage;
    Reference reference;
    bool tidy = false; ///< nothing but what a user can do

private:
    int below(std::size_t bound) { return below(static_cast<int>(bound)); }
    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(random_); }

    void clicks(int count) {
        for (; count > 0; --count) {
            const int number = below(37);
            stage.click(number);
            reference.coup(number);
            EXPECT_EQ(stage.main.Grid[0].ScrollRow().row, stage.main.Coup);
        }
    }

    void load() {
        std::string text;
        for (int i = below(20); i > 0; --i) {
            const int number = below(60);
            text += std::to_string(number) + (below(8) == 0 ? "x\n" : "\r\n");
            if (text.ends_with("\r\n") && number <= 36)
                reference.coup(number);
        }
        stage.load(text);
    }

    void draw() {
        stage.draw(std::to_string(below(40)));
        const auto all = support::numbers(stage.program);
        for (std::size_t i = reference.coups.size(); i < all.size(); ++i)
            reference.coup(all[i]);
    }

    /// Single writes of texts and colours that no coup would make.
    void scribble(int count) {
        for (; count > 0 && !reference.coups.empty(); --count) {
            const auto row = static_cast<std::size_t>(below(reference.coups.size()));
            const bool view = below(4) != 0;
            support::Row& wanted = (view ? reference.view : reference.store)[row];
            // Column 2 of the store is the number itself.
            const int column = view ? 1 + below(16) : 3 + below(8);
            const auto index = static_cast<std::size_t>(column);
            auto cell = stage.main.Grid[view ? 0 : 1].Row(static_cast<std::int64_t>(row) + 1);
            const unsigned color = below(3) == 0 ? 0U : static_cast<unsigned>(below(1 << 24));
            const int what = below(5);
            if (what == 0)
                cell.CellColor(column, *(wanted.color[index] = color));
            else if (what == 1)
                cell.RowColor(*(wanted.rowColor = color));
            else
                cell.Cell(column,
                    wanted.text[index] = below(3) == 0 ? ""
                        : below(2) == 0                ? std::to_string(row + 1)
                                                       : support::joined("w", ++written_));
        }
    }

    std::mt19937 random_;
    int written_ = 0;
};

TEST(Walk, EqualsThePlainProgramAfterEveryStep) {
    bool wide = false;
    for (const unsigned seed : {1U, 20U, 300U, 4000U}) {
        Walk walk(seed);
        walk.tidy = seed == 1;
        int done = -1;
        for (int i = 0; i < 90; ++i) {
            ASSERT_EQ(support::differs(walk.stage.program, walk.reference), "")
                << "seed " << seed << ", step " << i << ", command " << done;
            done = walk.step();
            wide = wide || walk.stage.main.Grid[0].bytesPerRow() > 1;
        }
        EXPECT_TRUE(walk.stage.dialogs.messages.empty());
    }
    EXPECT_TRUE(wide) << "no walk had more row patterns than a byte numbers";
}

TEST(Walk, ReadyMadeRowsDontOutliveASweep) {
    Stage stage;
    Reference reference;
    // A sweep of one grid says nothing of the other.
    for (const auto& swept : std::vector<std::vector<std::size_t>>{{0, 1}, {1}, {0}}) {
        for (const int number : {5, 0, 6, 5}) {
            stage.click(number);
            reference.coup(number);
        }
        ASSERT_EQ(support::differs(stage.program, reference), "");
        // No row looks like a coup any more, and every pattern number is given out anew.
        for (int i = 0; i < 600; ++i)
            for (std::size_t row = 0; row < reference.coups.size(); ++row) {
                const std::string text = std::to_string(i) + "-" + std::to_string(row);
                for (const std::size_t grid : swept) {
                    stage.main.Grid[grid].Row(static_cast<std::int64_t>(row) + 1).Cell(5, text);
                    (grid == 0 ? reference.view : reference.store)[row].text[5] = text;
                }
            }
        EXPECT_EQ(stage.main.Grid[swept[0]].bytesPerRow(), 1) << "unused numbers are given again";
    }
    // A coup placed once more on a scribbled row is no model for the next coup of its number.
    stage.click(5);
    reference.coup(5);
    const std::int64_t last = std::exchange(stage.main.Coup, 1);
    M_Permanenz::Sortierung_Coup(stage.program);
    stage.main.Coup = last;
    reference.place(1);
    stage.load("5");
    reference.coup(5);
    EXPECT_EQ(support::differs(stage.program, reference), "");
}

} // namespace
