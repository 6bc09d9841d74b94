// SPDX-License-Identifier: MIT
// One pattern number per row, in one, two or four bytes.
#pragma once

#include "controls/chunked.h"

#include <cstdint>
#include <limits>
#include <span>
#include <variant>

namespace controls {

/// What an id turns into where it stands.
struct IdChange {
    static constexpr std::uint32_t None = std::numeric_limits<std::uint32_t>::max();

    std::uint32_t before = None;
    std::uint32_t after = None;
};

/// A column of numbers, one byte each, or two or four after widen(). Only clear() makes it narrow
/// again.
class RowIds {
public:
    std::int64_t size() const {
        return std::visit([](const auto& ids) { return ids.size(); }, ids_);
    }

    std::uint32_t operator[](std::int64_t index) const {
        return std::visit([&](const auto& ids) -> std::uint32_t { return ids[index]; }, ids_);
    }

    /// Bytes per number at present: 1, 2 or 4.
    int width() const {
        return std::visit([]<class T>(const Chunked<T>&) { return int{sizeof(T)}; }, ids_);
    }

    /// The largest number that fits without widening.
    std::uint32_t capacity() const {
        return std::visit(
            []<class T>(
                const Chunked<T>&) -> std::uint32_t { return std::numeric_limits<T>::max(); },
            ids_);
    }

    /// Puts every number into the next wider form, if there is one. Throws std::bad_alloc and
    /// leaves everything as it was.
    void widen();

    /// `id` must fit (see capacity()). Throws std::bad_alloc and leaves everything as it was.
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

    /// How many numbers can be appended without more memory; at least one. Throws std::bad_alloc
    /// and leaves everything as it was.
    std::size_t room() {
        return std::visit([](auto& ids) { return ids.spare().size(); }, ids_);
    }
    /// Appends `idOf[key]` for every key, for which there must be room().
    void append(std::span<const std::uint8_t> keys, std::span<const std::uint32_t> idOf);
    /// Changes the numbers from `first` up to `last`, both included, as their keys' rows of
    /// `changeOf` say, as long as each is the one before the change. Gives the first that isn't, or
    /// last + 1; it may stop early. `changeOf` has a row for every key.
    std::int64_t change(std::int64_t first, std::int64_t last, const RowIds& keys,
        std::span<const IdChange> changeOf);

    /// Calls `visitor` with the numbers as they are stored, whichever width that is.
    template <class Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit(visitor, ids_);
    }

private:
    std::variant<Chunked<std::uint8_t>, Chunked<std::uint16_t>, Chunked<std::uint32_t>> ids_;
};

} // namespace controls
