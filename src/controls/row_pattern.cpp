// SPDX-License-Identifier: MIT
// What a grid row holds apart from its place.
#include "controls/row_pattern.h"

namespace controls {

namespace {

std::size_t place(int column) {
    return static_cast<std::size_t>(column - 1);
}

} // namespace

std::string_view RowPattern::Cell(int column) const {
    return place(column) < texts_.size() ? std::string_view(texts_[place(column)]) : "";
}

void RowPattern::Cell(int column, std::string_view text) {
    if (column == 1)
        serial_ = false;
    if (place(column) >= texts_.size()) {
        if (text.empty())
            return;
        texts_.resize(place(column) + 1);
    }
    texts_[place(column)] = text;
    while (!texts_.empty() && texts_.back().empty())
        texts_.pop_back();
}

std::optional<Color> RowPattern::CellColor(int column) const {
    return place(column) < colors_.size() ? colors_[place(column)] : std::nullopt;
}

void RowPattern::CellColor(int column, Color color) {
    if (place(column) >= colors_.size())
        colors_.resize(place(column) + 1);
    colors_[place(column)] = color;
}

void RowPattern::serial(bool serial) {
    Cell(1, "");
    serial_ = serial;
}

} // namespace controls
