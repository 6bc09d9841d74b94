// SPDX-License-Identifier: MIT
// Ready-made rows: what a coup's rows look like, remembered so that it takes no work on texts.
#pragma once

#include "chances/chancentabelle.h"
#include "controls/grid.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace forms {

/// Remembers which patterns the single steps of a coup and of a re-sort have made, by number. It
/// only ever repeats them, and forgets everything as soon as a grid drops patterns or the view
/// changes its family or mode. The view is the grid that is shown, the store the hidden one.
class ReadyRows {
public:
    using PatternId = controls::PatternId;

    /// What a number's row goes through.
    enum class Step { View, Store, Marks };

    /// To be called before the others: forgets what no longer fits.
    void adopt(const controls::Grid& view, const controls::Grid& store, int family, int mode) {
        const Origin now{view.generation(), store.generation(), family, mode};
        if (now == origin_)
            return;
        *this = {};
        origin_ = now;
    }

    /// What a step turns `before` into for a number; calls `make` if unknown. A step that begins a
    /// row has no pattern before it.
    template <class Make>
    PatternId after(Step step, int number, PatternId before, Make make) {
        Change& change = change_[static_cast<std::size_t>(step)][static_cast<std::size_t>(number)];
        if (!change.known || change.before != before)
            change = {true, before, make()};
        return change.after;
    }

    /// Appends coups from the front of `numbers` to both grids as long as their rows are known and
    /// there is room; returns how many. On std::bad_alloc nothing has changed.
    std::size_t append(
        controls::Grid& view, controls::Grid& store, std::span<const std::uint8_t> numbers) const;

    /// Re-sorts the view's rows `first` to `last` as long as it is known what becomes of each.
    /// Returns the first of which it isn't, or last + 1; it may stop early.
    std::int64_t resort(controls::Grid& view, const controls::Grid& store, std::int64_t first,
        std::int64_t last) const {
        return view.changeRows(first, last, store, resorted_);
    }
    /// Remembers what became of a view row beside such a store row. On std::bad_alloc nothing
    /// has changed.
    void learnResort(PatternId store, PatternId before, PatternId after);

private:
    struct Origin {
        std::uint64_t view = 0; ///< generations of the two grids
        std::uint64_t store = 0;
        int family = -1;
        int mode = -1;

        friend bool operator==(const Origin&, const Origin&) = default;
    };
    struct Change {
        bool known = false;
        PatternId before = 0;
        PatternId after = 0;
    };

    Origin origin_;
    std::array<std::array<Change, chances::NumberCount>, static_cast<std::size_t>(Step::Marks) + 1>
        change_; ///< by step and number
    std::vector<controls::IdChange> resorted_; ///< by the store row's pattern
};

} // namespace forms
