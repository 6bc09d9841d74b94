// SPDX-License-Identifier: MIT
// The row patterns that a grid has in use, found by content and known by small ids.
#pragma once

#include "controls/row_pattern.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace controls {

/// Stands for a pattern within its grid.
using PatternId = std::uint32_t;

/// Patterns by id and by content. It never drops one by itself: the grid, which knows the rows,
/// says which are in use.
class PatternTable {
public:
    const RowPattern& operator[](PatternId id) const { return *byId_[id]; }

    /// The id of an equal pattern, if there is one.
    std::optional<PatternId> find(const RowPattern& pattern) const;

    /// The id that the next new pattern would get.
    PatternId next() const;

    /// Adds a pattern that isn't there yet and returns its id, next().
    PatternId add(const RowPattern& pattern);

    /// How many ids have been in use, dropped ones included.
    std::size_t size() const { return byId_.size(); }

    /// Drops every pattern whose flag isn't set; their ids will be used again. `inUse` has size()
    /// flags.
    void keep(const std::vector<std::uint8_t>& inUse);

    /// How many ids stand for a pattern now.
    std::size_t live() const { return byContent_.size(); }

private:
    std::map<RowPattern, PatternId> byContent_;
    std::vector<const RowPattern*> byId_; // null where dropped
    std::vector<PatternId> free_;
};

} // namespace controls
