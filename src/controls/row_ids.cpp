// SPDX-License-Identifier: MIT
// One pattern id per row.
#include "controls/row_ids.h"

#include <algorithm>

namespace controls {

namespace {

template <class Wide, class Narrow>
Chunked<Wide> copyOf(const Chunked<Narrow>& narrow) {
    Chunked<Wide> wide;
    for (std::int64_t i = 0; i < narrow.size(); ++i)
        wide.push_back(narrow[i]);
    return wide;
}

/// Changes `ids` until one doesn't match; returns how many.
template <class Id, class Key>
std::size_t changeWhileKnown(
    std::span<Id> ids, std::span<const Key> keys, std::span<const IdChange> changeOf) {
    // Nearly all rows of a re-sort go this way; by fours they take a tenth less time.
    const std::size_t count = ids.size();
    std::size_t i = 0;
#pragma GCC unroll 4
    for (; i < count; ++i) {
        const IdChange& change = changeOf[keys[i]];
        if (change.before != ids[i])
            break;
        ids[i] = static_cast<Id>(change.after);
    }
    return i;
}

} // namespace

void RowIds::widen() {
    if (const auto* bytes = std::get_if<Chunked<std::uint8_t>>(&ids_))
        ids_ = copyOf<std::uint16_t>(*bytes);
    else if (const auto* words = std::get_if<Chunked<std::uint16_t>>(&ids_))
        ids_ = copyOf<std::uint32_t>(*words);
}

void RowIds::append(std::span<const std::uint8_t> keys, std::span<const std::uint32_t> idOf) {
    std::visit(
        [&]<class T>(Chunked<T>& ids) {
            const std::span<T> free = ids.spare();
            for (std::size_t i = 0; i < keys.size(); ++i)
                free[i] = static_cast<T>(idOf[keys[i]]);
            ids.grow(static_cast<std::int64_t>(keys.size()));
        },
        ids_);
}

std::int64_t RowIds::change(
    std::int64_t first, std::int64_t last, const RowIds& keys, std::span<const IdChange> changeOf) {
    return std::visit(
        [&](auto& ids, const auto& keyed) {
            const auto run = ids.run(first);
            const auto keyRun = keyed.run(first);
            const std::size_t count
                = std::min({run.size(), keyRun.size(), static_cast<std::size_t>(last - first + 1)});
            const std::size_t done
                = changeWhileKnown(run.first(count), keyRun.first(count), changeOf);
            return first + static_cast<std::int64_t>(done);
        },
        ids_, keys.ids_);
}

} // namespace controls
