// SPDX-License-Identifier: MIT
// Lines that can be read eight characters at a time, on machines whose words begin with the lowest
// byte. `line` is the line's first character and `length` its length without its LF.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace files {

inline constexpr std::size_t WordSize = 8;

/// The eight characters from `text` on, the first one lowest.
inline std::uint64_t eightCharacters(const char* text) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text, WordSize);
    return bytes;
}

/// Result for any other line. Range up to 99; the reader checks for 36.
inline constexpr unsigned OtherLine = 100;

/// The number of a line with a blank, one digit or two, a blank and a CR: how this program writes
/// them. Made without branches, for the digits of a permanence can't be foreseen. 8 bytes can be
/// read from `line` on.
inline unsigned ownLine(const char* line, std::size_t length) {
    constexpr std::uint64_t signs = 0xFFFF0000FF;
    constexpr std::uint64_t expected = 0x0D20000020; // CR, blank, two digits, blank
    constexpr std::uint64_t zeroBefore = (' ' ^ '0') << 8 | ' ';
    // A single digit gets a zero before it, which makes the two kinds of line alike.
    const bool one = length == 4;
    const std::uint64_t bytes
        = one ? (eightCharacters(line) << 8) ^ zeroBefore : eightCharacters(line);
    const auto tens = static_cast<unsigned>(bytes >> 8 & 0xFF) - '0';
    const auto ones = static_cast<unsigned>(bytes >> 16 & 0xFF) - '0';
    const bool fits = ((bytes & signs) == expected) & (tens <= (one ? 0 : 9)) & (ones <= 9);
    return fits & (one | (length == 5)) ? 10 * tens + ones : OtherLine;
}

/// The number of a line that is one digit or two, with at most one blank on either side, and ends
/// with a CR or without one. Also without branches. LF follows, and 8 bytes can be read.
inline unsigned usualLine(const char* line, std::size_t length) {
    if (length >= WordSize)
        return OtherLine;
    // With its LF, so that a NUL at the end of the line isn't taken for nothing.
    std::uint64_t rest
        = eightCharacters(line) & (~std::uint64_t{} >> (8 * (WordSize - 1 - length)));
    rest >>= (rest & 0xFF) == ' ' ? 8 : 0;
    const auto first = static_cast<unsigned>(rest & 0xFF) - '0';
    const auto second = static_cast<unsigned>(rest >> 8 & 0xFF) - '0';
    const bool two = second <= 9;
    rest >>= two ? 16 : 8;
    rest >>= (rest & 0xFF) == ' ' ? 8 : 0;
    constexpr std::uint64_t carriageReturnLineFeed = '\r' | '\n' << 8;
    const bool ends = (rest == '\n') | (rest == carriageReturnLineFeed);
    return (ends & (first <= 9)) ? (two ? 10 * first + second : first) : OtherLine;
}

} // namespace files
