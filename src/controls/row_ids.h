// SPDX-License-Identifier: MIT
// One pattern id per row, in one, two or four bytes.
#pragma once

#include "controls/chunked.h"

#include <cstdint>
#include <limits>
#include <span>
#include <variant>

namespace controls {

/// A replacement: `before` becomes `after`.
struct IdChange {
    static constexpr std::uint32_t None = std::numeric_limits<std::uint32_t>::max();

    std::uint32_t before = None;
    std::uint32_t after = None;
};

/// A column of ids, one byte each, or two or four after widen(). Only clear() makes it narrow
/// again.
class RowIds {
public:
    std::int64_t size() const {
        return std::visit([](const auto& ids) { return ids.size(); }, ids_);
    }

    std::uint32_t operator[](std::int64_t index) const {
        return std::visit([&](const auto& ids) -> std::uint32_t { return ids[index]; }, ids_);
    }

    /// Bytes per id at present: 1, 2 or 4.
    int width() const {
        return std::visit([]<class T>(const Chunked<T>&) { return int{sizeof(T)}; }, ids_);
    }

    /// The largest id that fits without widening.
    std::uint32_t capacity() const {
        return std::visit(
            []<class T>(
                const Chunked<T>&) -> std::uint32_t { return std::numeric_limits<T>::max(); },
            ids_);
    }

    /// Puts every id into the next wider form, if there is one. On std::bad_alloc nothing has
    /// changed.
    void widen();

    /// `id` must fit (see capacity()). On std::bad_alloc nothing has changed.
    void push_back(std::uint32_t id) {
        std::visit([&]<class T>(Chunked<T>& ids) { ids.push_back(static_cast<T>(id)); }, ids_);
    }
    void set(std::int64_t index, std::uint32_t id) {
        std::visit([&]<class T>(Chunked<T>& ids) { ids.set(index, static_cast<T>(id)); }, ids_);
    }
    void pop_back() {
        std::visit([](auto& ids) { ids.pop_back(); }, ids_);
    }
    void clear() { ids_ = Chunked<std::uint8_t>(); }

    /// How many ids can be appended without more memory; at least one. On std::bad_alloc nothing
    /// has changed.
    std::size_t room() {
        return std::visit([](auto& ids) { return ids.spare().size(); }, ids_);
    }
    /// Appends `idOf[key]` for every key, for which there must be room().
    void append(std::span<const std::uint8_t> keys, std::span<const std::uint32_t> idOf);
    /// For each place from `first` to `last` applies `changeOf[its id in keys]` while the id equals
    /// `before`; returns the first that doesn't, or last + 1. It may stop early. `changeOf` has an
    /// entry for every id in `keys`.
    std::int64_t change(std::int64_t first, std::int64_t last, const RowIds& keys,
        std::span<const IdChange> changeOf);

    /// Calls `visitor` with the ids as they are stored, whichever width that is.
    template <class Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit(visitor, ids_);
    }

private:
    std::variant<Chunked<std::uint8_t>, Chunked<std::uint16_t>, Chunked<std::uint32_t>> ids_;
};

} // namespace controls
