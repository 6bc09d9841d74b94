// SPDX-License-Identifier: MIT
// Lines that can be read eight characters at a time, on machines whose words begin with the lowest
// byte: one digit or two, with or without a blank before, a blank behind, and a CR.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace files {

inline constexpr std::size_t WordSize = 8;

/// One way to write a line.
struct LineKind {
    /// Where the characters stand in a word once the last digit is its third byte, and what they
    /// have to be: the bits of the mask must be as expected, of a digit the upper four.
    struct Form {
        unsigned shift = 0;
        std::uint64_t expected = 0;
        std::uint64_t mask = 0;
    };
    std::array<Form, 2> forms{}; ///< with one digit, with two
    std::size_t shortest = 0; ///< length with one digit, with the LF

    constexpr LineKind(std::string_view before, std::string_view behind) {
        for (unsigned digits = 1; digits <= 2; ++digits) {
            Form& form = forms[digits - 1];
            form.shift = 8 * (3 - digits - static_cast<unsigned>(before.size()));
            unsigned at = form.shift;
            const auto expect = [&](std::string_view characters, std::uint64_t mask) {
                for (const char character : characters) {
                    form.expected |= static_cast<std::uint64_t>(character) << at;
                    form.mask |= mask << at;
                    at += 8;
                }
            };
            expect(before, 0xFF);
            expect(digits == 1 ? "0" : "00", 0xF0);
            expect(behind, 0xFF);
        }
        shortest = before.size() + 1 + behind.size();
    }

    /// Whether a line of this kind has two digits. Told by its length and without a branch, for the
    /// digits of a permanence can't be foreseen.
    bool hasTwo(const char* line) const { return line[shortest - 1] != '\n'; }
};

/// All ways; the first one is how this program writes.
inline constexpr std::array<LineKind, 8> LineKinds{{{" ", " \r\n"}, {"", "\r\n"}, {"", "\n"},
    {" ", " \n"}, {" ", "\r\n"}, {" ", "\n"}, {"", " \r\n"}, {"", " \n"}}};

/// Result for any other line. Results can be larger still; the reader checks for 36.
inline constexpr unsigned OtherLine = 100;

/// The number of a line of this kind. 8 bytes can be read from `line` on.
inline unsigned numberOf(const LineKind& kind, const char* line) {
    const LineKind::Form& form = kind.forms[kind.hasTwo(line)];
    std::uint64_t rest = 0;
    std::memcpy(&rest, line, WordSize);
    rest = (rest << form.shift) ^ form.expected;
    constexpr std::uint64_t aboveNine = 6 << 16; // carries out of the lower four bits
    const bool fits = ((rest | (rest + aboveNine)) & form.mask) == 0;
    return fits ? static_cast<unsigned>(10 * (rest >> 8 & 0xF) + (rest >> 16 & 0xF)) : OtherLine;
}

} // namespace files
