// SPDX-License-Identifier: MIT
// Appending and re-sorting rows by what is remembered of them.
#include "forms/ready_rows.h"

#include <algorithm>

namespace forms {

std::size_t ReadyRows::append(
    controls::Grid& view, controls::Grid& store, std::span<const std::uint8_t> numbers) const {
    const auto& [views, stores, marks] = change_;
    std::array<PatternId, chances::NumberCount> marked{};
    std::array<PatternId, chances::NumberCount> stored{};
    std::array<bool, chances::NumberCount> known{};
    for (std::size_t number = 0; number < known.size(); ++number) {
        known[number] = views[number].known && stores[number].known && marks[number].known
            && marks[number].before == views[number].after;
        marked[number] = marks[number].after;
        stored[number] = stores[number].after;
    }
    const auto most = numbers.first(std::min({numbers.size(), view.room(), store.room()}));
    const auto end = std::find_if(
        most.begin(), most.end(), [&](std::uint8_t number) { return !known[number]; });
    const auto ready = most.first(static_cast<std::size_t>(end - most.begin()));
    view.appendRows(ready, marked);
    store.appendRows(ready, stored);
    return ready.size();
}

void ReadyRows::learnResort(PatternId store, PatternId before, PatternId after) {
    if (store >= resorted_.size())
        resorted_.resize(store + std::size_t{1});
    resorted_[store] = {before, after};
}

} // namespace forms
