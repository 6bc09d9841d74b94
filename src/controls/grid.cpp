// SPDX-License-Identifier: MIT
// The grid model.
#include "controls/grid.h"

#include <cassert>

namespace controls {

std::string Grid::ConstRowRef::Cell(int column) const {
    const RowPattern& pattern = grid_.pattern(grid_.patternOf(row_));
    if (column == 1 && pattern.serial())
        return std::to_string(row_);
    return std::string(pattern.Cell(column));
}

std::optional<Color> Grid::ConstRowRef::CellColor(int column) const {
    return grid_.pattern(grid_.patternOf(row_)).CellColor(column);
}

std::optional<Color> Grid::ConstRowRef::RowColor() const {
    return grid_.pattern(grid_.patternOf(row_)).RowColor();
}

void Grid::RowRef::Cell(int column, std::string_view text) {
    RowPattern pattern = grid_.pattern(grid_.patternOf(row_));
    if (column == 1 && text == std::to_string(row_))
        pattern.serial(true);
    else
        pattern.Cell(column, text);
    const PatternId id = grid_.intern(pattern);
    grid_.setPattern(row_, id);
}

void Grid::RowRef::CellColor(int column, Color color) {
    RowPattern pattern = grid_.pattern(grid_.patternOf(row_));
    pattern.CellColor(column, color);
    const PatternId id = grid_.intern(pattern);
    grid_.setPattern(row_, id);
}

void Grid::RowRef::RowColor(Color color) {
    RowPattern pattern = grid_.pattern(grid_.patternOf(row_));
    pattern.RowColor(color);
    const PatternId id = grid_.intern(pattern);
    grid_.setPattern(row_, id);
}

void Grid::AddColumn(
    std::string_view /*key*/, std::string_view caption, Twips width, int alignment) {
    columns_.push_back({std::string(caption), width, alignment});
}

void Grid::AddRow(std::string_view text) {
    RowPattern pattern;
    if (text == std::to_string(RowCount() + 1))
        pattern.serial(true);
    else
        pattern.Cell(1, text);
    AddRow(pattern);
}

void Grid::RemoveRow(std::int64_t row) {
    assert(row == RowCount() && row > 0);
    static_cast<void>(row);
    ids_.pop_back();
}

void Grid::Clear() {
    ids_.clear();
    patterns_ = PatternTable();
    ++generation_;
}

PatternId Grid::intern(const RowPattern& pattern) {
    if (const auto id = patterns_.find(pattern))
        return *id;
    if (patterns_.next() > ids_.capacity()) {
        dropUnused();
        // Too little gained: the next round would come at once.
        if (patterns_.live() > patterns_.size() / 2)
            ids_.widen();
    }
    return patterns_.add(pattern);
}

void Grid::dropUnused() {
    std::vector<std::uint8_t> inUse(patterns_.size());
    ids_.visit([&](const auto& ids) {
        for (std::int64_t i = 0; i < ids.size();) {
            const auto run = ids.run(i);
            for (const auto id : run)
                inUse[id] = 1;
            i += static_cast<std::int64_t>(run.size());
        }
    });
    patterns_.keep(inUse);
    ++generation_;
}

} // namespace controls
