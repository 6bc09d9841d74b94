// SPDX-License-Identifier: MIT
// The full re-sort.
#include "grids/resort.h"

#include "grids/placement.h"
#include "progress/long_run.h"

#include <algorithm>
#include <limits>
#include <new>
#include <span>
#include <vector>

namespace M_Permanenz {

namespace {

using controls::PatternId;

/// What the re-sort made of a view row, for the last view row that was met with this store row.
struct Resorted {
    PatternId before = std::numeric_limits<PatternId>::max();
    PatternId after = 0;
};

/// Gives rows their new marks as long as the result is known; `numbers` tells the pattern of each
/// row's number, and `known` is long enough for all of them. How many rows it did.
template <class Id, class Number>
std::size_t remark(
    std::span<Id> ids, std::span<const Number> numbers, std::span<const Resorted> known) {
    // Nearly all rows of a re-sort go this way; by fours they take a tenth less time.
    const std::size_t count = ids.size();
    std::size_t i = 0;
#pragma GCC unroll 4
    for (; i < count; ++i) {
        const Resorted& resorted = known[numbers[i]];
        if (resorted.before != ids[i])
            break;
        ids[i] = static_cast<Id>(resorted.after);
    }
    return i;
}

/// Re-sorts rows one by one where it must, and by what it did before where it can.
class Resorting {
public:
    explicit Resorting(Program& program)
        : program_(program), view_(program.Frm_Main.Grid[0]), store_(program.Frm_Main.Grid[1]) { }

    /// Re-sorts the rows `from` up to `to`, both included. A row whose new look memory can't hold
    /// keeps its old one, and the work goes on.
    void block(std::int64_t from, std::int64_t to) {
        for (std::int64_t row = from; row <= to;) {
            row = knownRows(row, to);
            if (row <= to)
                tryRow(row++);
        }
        program_.Frm_Main.Coup = to;
        program_.Frm_Main.Plein = number(to);
    }

private:
    int number(std::int64_t row) const { return std::stoi(store_.Row(row).Cell(2)); }

    /// Goes through rows from `row` on as long as each has a known result; gives the first that
    /// hasn't, that begins another chunk, or to + 1.
    std::int64_t knownRows(std::int64_t row, std::int64_t to) {
        if (known_.empty())
            return row;
        return view_.ids().visit([&](auto& view) {
            return store_.ids().visit([&](const auto& store) {
                const auto ids = view.run(row - 1);
                const auto numbers = store.run(row - 1);
                const auto most = static_cast<std::size_t>(to - row + 1);
                const std::size_t count = std::min({ids.size(), numbers.size(), most});
                const std::size_t i = remark(ids.first(count), numbers.first(count), known_);
                // At the end of a chunk the caller's single row leads over to the next one.
                return row + static_cast<std::int64_t>(i);
            });
        });
    }

    void tryRow(std::int64_t row) {
        try {
            newRow(row);
        } catch (const std::bad_alloc&) {
            forget();
        }
    }

    void forget() { known_.clear(); }

    void newRow(std::int64_t row) {
        const PatternId before = view_.patternOf(row);
        const PatternId store = store_.patternOf(row);
        const std::uint64_t stand = view_.generation();
        const forms::MainForm& form = program_.Frm_Main;
        const PatternId after = view_.intern(withMarks(withoutMarks(view_.pattern(before)),
            form.xpCombo[0].ListIndex, form.Check[0].Value != 0, number(row)));
        view_.setPattern(row, after);
        if (view_.generation() != stand)
            forget();
        known_.resize(store_.patternNumbers());
        known_[store] = {before, after};
    }

    Program& program_;
    controls::Grid& view_;
    const controls::Grid& store_;
    /// By the pattern of the store row; empty, or long enough for all of them.
    std::vector<Resorted> known_;
};

} // namespace

void Sortierung_Neu(Program& program, platform::Platform& platform) {
    controls::Grid& view = program.Frm_Main.Grid[0];
    const std::int64_t n = program.Frm_Main.Grid[1].RowCount();
    progress::show(program, n, false);
    const std::int64_t m = view.RowCount();
    progress::Pace pace(platform);
    Resorting resorting(program);
    for (std::int64_t i = 1; i <= m; i += progress::BlockSize) {
        const std::int64_t last = std::min(i + progress::BlockSize - 1, m);
        resorting.block(i, last);
        view.Refresh();
        progress::report(program, last, n, last);
        pace.paint();
    }
    progress::Form_Unload(program);
}

} // namespace M_Permanenz
