// SPDX-License-Identifier: MIT
// Numbers at the beginning of a text.
#include "stats/leading_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace stats {

namespace {

/// The length of the longest plain decimal number at the start of `text`, which has no sign.
std::size_t numberLength(std::string_view text) {
    const auto digits = [&](std::size_t from) {
        const std::size_t end = text.find_first_not_of("0123456789", from);
        return (end == std::string_view::npos ? text.size() : end) - from;
    };
    std::size_t length = digits(0);
    if (length < text.size() && text[length] == '.') {
        const std::size_t after = digits(length + 1);
        if (length + after > 0)
            length += 1 + after;
    }
    return length;
}

template <class Whole>
std::optional<Whole> wholeNumber(double value) {
    const double rounded = std::nearbyint(value);
    if (rounded < std::numeric_limits<Whole>::min() || rounded > std::numeric_limits<Whole>::max())
        return std::nullopt;
    return static_cast<Whole>(rounded);
}

} // namespace

double leadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    double value = 0;
    const char* end = text.data() + numberLength(text);
    if (std::from_chars(text.data(), end, value, std::chars_format::fixed).ec
        == std::errc::result_out_of_range)
        // Too large, or too near to 0: then no digit but 0 stands before the point.
        value = text.find_first_of("123456789") < text.find('.')
            ? std::numeric_limits<double>::infinity()
            : 0;
    return negative ? -value : value;
}

std::optional<std::int16_t> wholeNumber16(double value) {
    return wholeNumber<std::int16_t>(value);
}

std::optional<std::int32_t> wholeNumber32(double value) {
    return wholeNumber<std::int32_t>(value);
}

} // namespace stats
