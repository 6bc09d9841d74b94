// SPDX-License-Identifier: MIT
// Reading the lines of a permanence file.
#include "files/line_reader.h"

#include "chances/chancentabelle.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>
#include <utility>

namespace files {

namespace {

constexpr unsigned HighestNumber = chances::NumberCount - 1;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr unsigned NoMarkAnyMore = 4;

} // namespace

void LineReader::read(std::string_view block) {
    block = withoutByteOrderMark(block);
    while (!block.empty()) {
        if (place_ == Place::Start)
            block = wholeLines(block);
        // A line that runs over the end of a block, or out of the ordinary.
        const std::size_t feed = block.find('\n');
        const std::size_t length = feed == std::string_view::npos ? block.size() : feed + 1;
        for (const char c : block.substr(0, length))
            takeCharacter(c);
        block.remove_prefix(length);
    }
}

std::string_view LineReader::withoutByteOrderMark(std::string_view block) {
    while (bom_ < ByteOrderMark.size() && !block.empty()) {
        if (block.front() != ByteOrderMark[bom_]) {
            // The beginning of a mark that is none is text like any other, and not a number.
            if (bom_ > 0)
                place_ = Place::Invalid;
            bom_ = NoMarkAnyMore;
            break;
        }
        ++bom_;
        block.remove_prefix(1);
    }
    return block;
}

/// Reads usual lines from the beginning of a line on; returns what is left, which begins with a
/// line that is unusual or too near to the end of the block.
std::string_view LineReader::wholeLines(std::string_view block) {
    if constexpr (std::endian::native != std::endian::little)
        return block;
    std::array<std::uint8_t, 1024> numbers{};
    std::size_t count = 0;
    const auto keep = [&] { numbers_.append(std::span(numbers).first(std::exchange(count, 0))); };
    const auto* kind = kind_;
    const char* line = block.data();
    const char* const end = line + block.size();
    while (end - line >= std::ptrdiff_t{WordSize}) {
        const unsigned value = numberOf(*kind, line);
        if (value <= HighestNumber) {
            numbers[count++] = static_cast<std::uint8_t>(value);
            if (count == numbers.size())
                keep();
            line += kind->shortest + kind->hasTwo(line);
            continue;
        }
        kind = std::find_if(LineKinds.begin(), LineKinds.end(),
            [&](const LineKind& other) { return numberOf(other, line) <= HighestNumber; });
        if (kind == LineKinds.end())
            break;
        kind_ = kind;
    }
    keep();
    return {line, static_cast<std::size_t>(end - line)};
}

void LineReader::finish() {
    endOfLine();
}

void LineReader::takeCharacter(char c) {
    if (c == '\r' || c == '\n') {
        endOfLine();
    } else if (c == ' ' || c == '\t') {
        if (place_ == Place::Number)
            place_ = Place::After;
    } else if (c >= '0' && c <= '9' && (place_ == Place::Start || place_ == Place::Number)) {
        place_ = Place::Number;
        value_ = value_ * 10 + static_cast<unsigned>(c - '0');
        if (value_ > HighestNumber)
            place_ = Place::Invalid;
    } else {
        place_ = Place::Invalid;
    }
}

void LineReader::endOfLine() {
    if (place_ == Place::Number || place_ == Place::After)
        numbers_.push_back(static_cast<std::uint8_t>(value_));
    place_ = Place::Start;
    value_ = 0;
}

} // namespace files
