// SPDX-License-Identifier: MIT
// What a grid row holds apart from its place: texts and colours of its cells, and its own colour.
#pragma once

#include "controls/color.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace controls {

/// The content of a row. Millions of rows share a few of these. Columns count from 1. Two patterns
/// are equal exactly when all their texts and colours read the same, so an empty text leaves no
/// trace.
class RowPattern {
public:
    /// The text of a cell; empty when nothing else was written. Cell 1 reads empty while it stands
    /// for the row's own number.
    std::string_view Cell(int column) const;
    /// `text` must not be a text of this same pattern.
    void Cell(int column, std::string_view text);

    /// The colour of a cell, if it was ever set; 0 is black.
    std::optional<Color> CellColor(int column) const;
    void CellColor(int column, Color color);

    std::optional<Color> RowColor() const { return rowColor_; }
    void RowColor(Color color) { rowColor_ = color; }

    /// Whether cell 1 stands for the row's own number. Then the text isn't kept, which is what
    /// lets rows share a pattern.
    bool serial() const { return serial_; }
    void serial(bool serial);

    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy 14 takes <=> for a null pointer
    friend auto operator<=>(const RowPattern&, const RowPattern&) = default;

private:
    std::vector<std::string> texts_;
    std::vector<std::optional<Color>> colors_;
    std::optional<Color> rowColor_;
    bool serial_ = false;
};

} // namespace controls
