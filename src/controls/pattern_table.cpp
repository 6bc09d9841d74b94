// SPDX-License-Identifier: MIT
// The row patterns that a grid has in use.
#include "controls/pattern_table.h"

namespace controls {

std::optional<PatternId> PatternTable::find(const RowPattern& pattern) const {
    const auto found = byContent_.find(pattern);
    return found == byContent_.end() ? std::nullopt : std::optional(found->second);
}

PatternId PatternTable::next() const {
    return free_.empty() ? static_cast<PatternId>(byId_.size()) : free_.back();
}

PatternId PatternTable::add(const RowPattern& pattern) {
    const PatternId id = next();
    if (byId_.size() == byId_.capacity())
        byId_.reserve(2 * byId_.size() + 1);
    const auto place = byContent_.emplace(pattern, id).first;
    if (free_.empty()) {
        byId_.push_back(&place->first);
    } else {
        byId_[id] = &place->first;
        free_.pop_back();
    }
    return id;
}

void PatternTable::keep(const std::vector<std::uint8_t>& inUse) {
    free_.reserve(byId_.size());
    for (PatternId id = 0; id < byId_.size(); ++id) {
        if (inUse[id] || !byId_[id])
            continue;
        byContent_.erase(*byId_[id]);
        byId_[id] = nullptr;
        free_.push_back(id);
    }
}

} // namespace controls
