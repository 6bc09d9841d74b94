// SPDX-License-Identifier: MIT
// The grid model: columns, rows, cell texts and colours. The program's data lives in these.
#pragma once

#include "controls/color.h"
#include "controls/pattern_table.h"
#include "controls/row_ids.h"
#include "controls/twips.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace controls {

/// A grid of rows and columns, both counted from 1.
///
/// A row keeps the id of a pattern, and the pattern keeps texts and colours, all but a serial
/// number. Ids take one byte; when 256 are in use and dropping unused ones frees less than half,
/// two, later four. Any single cell can still be written; the row then moves to another pattern.
class Grid {
public:
    struct ColumnState {
        std::string Caption;
        Twips Width = 0;
        int Alignment = 0; ///< 0 left, 2 centred
    };

    /// The row that was asked into view last, and how often one was asked for.
    struct ScrollRequest {
        std::int64_t row = 0;
        std::uint64_t count = 0;
    };

    /// A row to be read. Valid as long as the row exists.
    class ConstRowRef {
    public:
        ConstRowRef(const Grid& grid, std::int64_t row) : grid_(grid), row_(row) { }
        /// The cell's text; it stays valid whatever is written afterwards.
        std::string Cell(int column) const;
        std::optional<Color> CellColor(int column) const;
        std::optional<Color> RowColor() const;

    private:
        const Grid& grid_;
        std::int64_t row_;
    };

    /// A row to be read and written. When a write ends in std::bad_alloc the row has not changed.
    class RowRef : public ConstRowRef {
    public:
        RowRef(Grid& grid, std::int64_t row) : ConstRowRef(grid, row), grid_(grid), row_(row) { }
        using ConstRowRef::Cell;
        using ConstRowRef::CellColor;
        using ConstRowRef::RowColor;
        void Cell(int column, std::string_view text);
        void CellColor(int column, Color color);
        void RowColor(Color color);

    private:
        Grid& grid_;
        std::int64_t row_;
    };

    /// Adds a column at the right. The key is never looked at.
    void AddColumn(std::string_view key, std::string_view caption, Twips width, int alignment);
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    ColumnState& Column(int column) { return columns_[static_cast<std::size_t>(column - 1)]; }
    const ColumnState& Column(int column) const {
        return columns_[static_cast<std::size_t>(column - 1)];
    }

    /// Appends a bare row with `text` in column 1.
    void AddRow(std::string_view text);
    /// Appends a row that looks like `pattern`.
    void AddRow(const RowPattern& pattern) { addPattern(intern(pattern)); }
    /// Takes the last row off; `row` is its number, and no other row can be removed.
    void RemoveRow(std::int64_t row);
    /// Takes all rows off. Columns with their captions and widths stay.
    void Clear();
    std::int64_t RowCount() const { return ids_.size(); }
    RowRef Row(std::int64_t row) { return {*this, row}; }
    ConstRowRef Row(std::int64_t row) const { return {*this, row}; }

    int GridLines = 0; ///< 0 none, 3 lines
    Twips Width = 0;
    bool MustUpdate = true;
    int DisplayMode = 0;

    void ScrollRow(std::int64_t row) { scroll_ = {row, scroll_.count + 1}; }
    const ScrollRequest& ScrollRow() const { return scroll_; }
    /// The view looks at the grid once per event turn, so there is nothing left to do.
    void Refresh() { }

    // Rows by their patterns. A pattern's id stays valid while generation() stays the same.

    /// The id of a pattern with this content. It may drop patterns that no row uses, so the id
    /// has to be used for a row before the next call.
    PatternId intern(const RowPattern& pattern);
    const RowPattern& pattern(PatternId id) const { return patterns_[id]; }
    PatternId patternOf(std::int64_t row) const { return ids_[row - 1]; }
    std::uint64_t generation() const { return generation_; }
    /// The ids of all patterns lie below this.
    std::size_t patternIds() const { return patterns_.size(); }
    void addPattern(PatternId id) { ids_.push_back(id); }
    void setPattern(std::int64_t row, PatternId id) { ids_.set(row - 1, id); }
    /// How many rows can be appended without more memory; at least one. May throw std::bad_alloc.
    std::size_t room() { return ids_.room(); }
    /// Appends a row that looks like `patternOf[key]` for every key; there must be room() for them.
    void appendRows(std::span<const std::uint8_t> keys, std::span<const PatternId> patternOf) {
        ids_.append(keys, patternOf);
    }
    /// For each row from `first` to `last` applies `changeOf[its row in keys]` while the pattern
    /// equals `before`; returns the first row that doesn't, or last + 1. It may stop early.
    std::int64_t changeRows(std::int64_t first, std::int64_t last, const Grid& keys,
        std::span<const IdChange> changeOf) {
        const bool covered = changeOf.size() >= keys.patternIds();
        return covered ? ids_.change(first - 1, last - 1, keys.ids_, changeOf) + 1 : first;
    }
    int bytesPerRow() const { return ids_.width(); }

private:
    void dropUnused();

    std::vector<ColumnState> columns_;
    PatternTable patterns_;
    RowIds ids_;
    ScrollRequest scroll_;
    std::uint64_t generation_ = 1;
};

} // namespace controls
