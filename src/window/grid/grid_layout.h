// SPDX-License-Identifier: MIT
// Where the shown columns of a grid stand, and how its rows map to a scroll bar.
#pragma once

#include "controls/grid.h"
#include "grids/families.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace window {

/// The columns that a grid's width has room for, with all that their header shows. Logical pixels
/// from the left edge of column 1.
struct GridLayout {
    struct Column {
        int left = 0;
        int right = 0; ///< one past the last pixel; the line, if there is one, lies within
        int alignment = 0;
        std::string caption;

        friend bool operator==(const Column&, const Column&) = default;
    };

    static constexpr int HeaderHeight = 20;
    static constexpr int RowHeight = 17; ///< with lines and without, so that no row moves
    static constexpr controls::Twips ScrollBarWidth = grids::ScrollBarWidth;

    std::vector<Column> columns;
    bool lines = false;

    /// Rows that show, at least in part, in a view of this height, its header included.
    static int rowsIn(int height) {
        return std::max(1, (height - HeaderHeight + RowHeight - 1) / RowHeight);
    }

    int width() const { return columns.empty() ? 0 : columns.back().right; }

    friend bool operator==(const GridLayout&, const GridLayout&) = default;
};

/// The layout that a grid asks for: column widths by their rounded edges, one pixel more for each
/// line, and only columns that fit as a whole beside the scroll bar. So a column that the selected
/// family doesn't use never shows, not even in part, whatever width it had before.
inline GridLayout layoutOf(const controls::Grid& grid) {
    GridLayout layout;
    layout.lines = grid.GridLines != 0;
    const int line = layout.lines ? 1 : 0;
    const controls::Twips room = grid.Width - GridLayout::ScrollBarWidth;
    controls::Twips edge = 0;
    int left = 0;
    for (int j = 1; j <= grid.ColumnCount(); ++j) {
        const auto& column = grid.Column(j);
        edge += column.Width;
        if (edge + j * line * controls::TwipsPerPixel > room)
            break;
        const int right = controls::toPixels(edge) + j * line;
        layout.columns.push_back({left, right, column.Alignment, column.Caption});
        left = right;
    }
    return layout;
}

/// A count of rows or cells for those parts of the toolkit that count in 32 bits.
inline int narrowed(std::int64_t count) {
    return static_cast<int>(std::clamp<std::int64_t>(count, 0, std::numeric_limits<int>::max()));
}

/// Top rows, counted from 0 to `last`, on a scroll bar that holds 32 bits. Up to a thousand million
/// rows a step of the bar is a row; beyond, several rows share one.
class RowScale {
public:
    explicit RowScale(std::int64_t last = 0) : last_(last) {
        while ((last_ >> shift_) > BarLimit)
            ++shift_;
    }

    bool scaled() const { return shift_ > 0; }
    std::int64_t last() const { return last_; }
    int barMaximum() const { return toBar(last_); }
    int toBar(std::int64_t row) const { return static_cast<int>(row >> shift_); }
    /// The bar's end means the last row, so that it can be reached by dragging.
    std::int64_t toRow(int bar) const {
        return bar >= barMaximum() ? last_ : static_cast<std::int64_t>(bar) << shift_;
    }

private:
    static constexpr std::int64_t BarLimit = std::int64_t{1} << 30;

    std::int64_t last_;
    int shift_ = 0;
};

} // namespace window
