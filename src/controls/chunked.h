// SPDX-License-Identifier: MIT
// A sequence that grows by whole chunks: no value is copied, and memory keeps step with its length.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace controls {

/// A sequence of trivially copyable values in chunks of 65,536. A doubling vector would hold up
/// to three times its content while it grows; this one holds at most one chunk too many, or two
/// where values have been taken off.
template <class T>
class Chunked {
public:
    static constexpr std::int64_t ChunkSize = 65536;

    std::int64_t size() const { return size_; }

    /// The value at `index`, 0 to size() - 1.
    T operator[](std::int64_t index) const { return chunks_[chunk(index)][place(index)]; }

    void set(std::int64_t index, T value) { chunks_[chunk(index)][place(index)] = value; }

    /// On std::bad_alloc nothing has changed.
    void push_back(T value) {
        reserveOne();
        set(size_++, value);
    }

    /// On std::bad_alloc a part of the values has been appended.
    void append(std::span<const T> values) {
        while (!values.empty()) {
            const std::span<T> free = spare();
            const std::size_t count = std::min(free.size(), values.size());
            std::copy_n(values.begin(), count, free.begin());
            grow(static_cast<std::int64_t>(count));
            values = values.subspan(count);
        }
    }

    /// Takes the last value off. One spare chunk is kept, so that stepping to and fro over a
    /// chunk's edge costs no allocation.
    void pop_back() {
        --size_;
        if (chunk(size_) + 2 < chunks_.size())
            chunks_.pop_back();
    }

    void clear() {
        chunks_.clear();
        chunks_.shrink_to_fit();
        size_ = 0;
    }

    /// The values from `index` to the end of their chunk or of the sequence, whichever is first.
    std::span<T> run(std::int64_t index) { return {from(index), length(index)}; }
    std::span<const T> run(std::int64_t index) const { return {from(index), length(index)}; }

    /// The free places after the last value, up to the end of its chunk; at least one.
    /// On std::bad_alloc nothing has changed.
    std::span<T> spare() {
        reserveOne();
        return {from(size_), static_cast<std::size_t>(ChunkSize) - place(size_)};
    }

    /// Adds the first `count` values of spare().
    void grow(std::int64_t count) { size_ += count; }

    /// Frees the memory of all whole chunks before `index`; they can't be read any more.
    void release(std::int64_t index) {
        for (std::size_t i = chunk(index); i-- > 0 && chunks_[i];)
            chunks_[i].reset();
    }

private:
    /// Makes room for one more value. On std::bad_alloc nothing has changed.
    void reserveOne() {
        if (chunk(size_) == chunks_.size())
            chunks_.push_back(std::make_unique_for_overwrite<T[]>(ChunkSize));
    }

    static std::size_t chunk(std::int64_t index) {
        return static_cast<std::size_t>(index / ChunkSize);
    }
    static std::size_t place(std::int64_t index) {
        return static_cast<std::size_t>(index % ChunkSize);
    }
    T* from(std::int64_t index) const { return chunks_[chunk(index)].get() + place(index); }
    std::size_t length(std::int64_t index) const {
        const auto left = static_cast<std::size_t>(size_ - index);
        return std::min(left, static_cast<std::size_t>(ChunkSize) - place(index));
    }

    std::vector<std::unique_ptr<T[]>> chunks_;
    std::int64_t size_ = 0;
};

} // namespace controls
