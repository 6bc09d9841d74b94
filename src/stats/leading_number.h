// SPDX-License-Identifier: MIT
// Numbers at the beginning of a text that a user has typed.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace stats {

/// The number at the start of a text: blanks or tabs, a sign, digits, a point, digits. 0 if there
/// is none. "2.5x" reads as 2.5, ".5" as 0.5, "inf" and "0x10" as 0. A number too large for a
/// double reads as infinity, one too near to 0 as 0.
double leadingNumber(std::string_view text);

/// `value` rounded to a whole number, halves to the even neighbour; nothing beyond 16 bits signed,
/// or 32.
std::optional<std::int16_t> wholeNumber16(double value);
std::optional<std::int32_t> wholeNumber32(double value);

} // namespace stats
