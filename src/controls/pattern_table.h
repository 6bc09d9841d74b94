// SPDX-License-Identifier: MIT
// The row patterns that a grid has in use, found by content and known by small numbers.
#pragma once

#include "controls/row_pattern.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace controls {

/// The number of a pattern within its grid.
using PatternId = std::uint32_t;

/// Patterns by number and by content. It never decides by itself to drop one: the grid, which
/// knows the rows, tells which are in use.
class PatternTable {
public:
    const RowPattern& operator[](PatternId id) const { return *byId_[id]; }

    /// The number of an equal pattern, if there is one.
    std::optional<PatternId> find(const RowPattern& pattern) const;

    /// The number that the next new pattern would get.
    PatternId next() const;

    /// Adds a pattern that isn't there yet and gives its number, next().
    PatternId add(const RowPattern& pattern);

    /// How many numbers have been given out, dropped ones included.
    std::size_t size() const { return byId_.size(); }

    /// Drops every pattern whose flag isn't set; their numbers will be given out again. `inUse` has
    /// size() flags.
    void keep(const std::vector<std::uint8_t>& inUse);

    /// How many of the numbers given out stand for a pattern.
    std::size_t live() const { return byContent_.size(); }

private:
    std::map<RowPattern, PatternId> byContent_;
    std::vector<const RowPattern*> byId_; // null where dropped
    std::vector<PatternId> free_;
};

} // namespace controls
