// SPDX-License-Identifier: MIT
// What the work costs with nothing around it: the measure that the program's times are held to.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace bench {

/// The counts of the 37 numbers, so that no loop can be dropped and results can be compared.
using Counts = std::array<std::int64_t, 37>;

/// What a bare loop made: it is kept and looked at, so that no work can be dropped.
struct Bare {
    struct Chunk {
        std::unique_ptr<std::uint8_t[]> numbers;
        std::size_t size = 0;
    };

    Counts counts{};
    std::vector<Chunk> chunks;

    /// The stored bytes one after the other.
    std::vector<std::uint8_t> numbers() const;
    /// The counts as the stored bytes have them.
    Counts recount() const;
};

/// Reads a file in blocks of 64 KiB, finds the line ends, checks each line, stores one byte per
/// valid line and counts the numbers.
Bare bareLoad(const std::string& file);

/// Mixes, draws and floors `count` times, without any clock; stores one byte each and counts.
Bare bareDraw(std::int64_t count);

/// Writes the mark of each row's number into `rows`, one byte each.
void bareResort(const std::vector<std::uint8_t>& numbers,
    const std::array<std::uint8_t, 256>& marks, std::vector<std::uint8_t>& rows);

} // namespace bench
