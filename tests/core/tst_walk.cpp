// SPDX-License-Identifier: MIT
// Random walks through the program's commands, compared with a plain second program after every
// step: incremental equals worked out anew.
#include "grids/families.h"
#include "grids/placement.h"
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
        else if (command == 13 && !reference.coups.empty())
            placeAgain();
        else
            scribble(1 + below(80));
        return command;
    }

    Stage stage;
    Reference reference;

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

    /// Places a coup under another family and mode without clearing: both marks stand.
    void placeAgain() {
        forms::MainForm& form = stage.main;
        const auto row = static_cast<std::size_t>(below(reference.coups.size()));
        const bool same = below(2) == 0;
        const int family = same ? reference.family : below(grids::Families.size());
        const int mode = same ? int{reference.asCodes} : below(2);
        const auto old
            = std::tuple(form.xpCombo[0].ListIndex, form.Check[0].Value, form.Coup, form.Plein);
        std::tie(form.xpCombo[0].ListIndex, form.Check[0].Value, form.Coup, form.Plein)
            = std::tuple(family, mode, static_cast<std::int64_t>(row + 1), reference.coups[row]);
        M_Permanenz::Sortierung_Coup(stage.program);
        std::tie(form.xpCombo[0].ListIndex, form.Check[0].Value, form.Coup, form.Plein) = old;
        Reference other = reference;
        other.family = family;
        other.asCodes = mode != 0;
        other.place(row + 1);
        reference.view = other.view;
    }

    /// Single writes of texts and colours that no coup would make.
    void scribble(int count) {
        for (; count > 0 && !reference.coups.empty(); --count) {
            const auto row = static_cast<std::size_t>(below(reference.coups.size()));
            const bool view = below(4) != 0;
            controls::Grid& grid = stage.main.Grid[view ? 0 : 1];
            support::Row& wanted = (view ? reference.view : reference.store)[row];
            // Column 2 of the store is the number itself.
            const int column = view ? 1 + below(16) : 3 + below(8);
            auto cell = grid.Row(static_cast<std::int64_t>(row) + 1);
            const unsigned color = below(3) == 0 ? 0U : static_cast<unsigned>(below(1 << 24));
            switch (below(5)) {
            case 0:
                cell.CellColor(column, color);
                wanted.color[static_cast<std::size_t>(column)] = color;
                break;
            case 1:
                cell.RowColor(color);
                wanted.rowColor = color;
                break;
            default:
                const std::string text = below(3) == 0 ? std::string()
                    : below(2) == 0                    ? std::to_string(row + 1)
                                                       : "w" + std::to_string(++written_);
                cell.Cell(column, text);
                wanted.text[static_cast<std::size_t>(column)] = text;
            }
        }
    }

    std::mt19937 random_;
    int written_ = 0;
};

TEST(Walk, EqualsThePlainProgramAfterEveryStep) {
    bool wide = false;
    for (const unsigned seed : {1U, 20U, 300U}) {
        Walk walk(seed);
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

TEST(Walk, ReadyMadeRowsGoWithFamilyAndMode) {
    Stage stage;
    Reference reference;
    for (int entry = 0; entry < static_cast<int>(grids::Families.size()); ++entry) {
        stage.family(entry);
        reference.choose(entry);
        for (int change = 0; change < 2; ++change) {
            for (const int number : {0, 17, 36, 36}) {
                stage.click(number);
                reference.coup(number);
            }
            stage.check(0);
            reference.toggleCodes();
            stage.click(36);
            reference.coup(36);
            ASSERT_EQ(support::differs(stage.program, reference), "") << "family " << entry;
        }
    }
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

TEST(Walk, RowsNotYetReachedByAResortKeepTheirOldMarks) {
    Stage stage;
    stage.draw("20000");
    const auto numbers = support::numbers(stage.program);
    int between = 0;
    stage.events.onPaint = [&] {
        const std::int64_t done = stage.main.Coup;
        between += done > 0 && done < 20000 ? 1 : 0;
        for (std::int64_t row = 1; row <= 20000; row += row < 20 ? 1 : 61) {
            const auto wanted = support::marks(
                row <= done ? 5 : 0, false, numbers[static_cast<std::size_t>(row - 1)]);
            for (int j = 2; j <= 13; ++j)
                ASSERT_EQ(stage.main.Grid[0].Row(row).Cell(j), wanted[static_cast<std::size_t>(j)])
                    << "row " << row << " with " << done << " rows done";
        }
    };
    stage.family(5);
    EXPECT_GE(between, 2);
}

} // namespace
