// SPDX-License-Identifier: MIT
// Reading the lines of a permanence file.
#include "files/line_reader.h"

#include "chances/chancentabelle.h"
#include "files/fast_line.h"

#include <array>
#include <bit>
#include <span>
#include <utility>

namespace files {

namespace {

constexpr unsigned HighestNumber = chances::NumberCount - 1;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr unsigned NoMarkAnyMore = 4;

constexpr std::size_t PieceSize = 64;

/// The places of LF among the 64 bytes from `text` on, one bit each.
std::uint64_t lineFeeds(const char* text) {
    constexpr std::uint64_t ones = 0x0101010101010101U;
    constexpr std::uint64_t low = 0x7F * ones;
    std::uint64_t places = 0;
    for (std::size_t i = 0; i < PieceSize / WordSize; ++i) {
        const std::uint64_t other = eightCharacters(text + i * WordSize) ^ ('\n' * ones);
        // The top bit of each byte that is LF, exactly: no carry leaves its byte.
        const std::uint64_t found = ~(((other & low) + low) | other | low);
        // The multiplication gathers the eight top bits in one byte.
        places |= (((found >> 7) * 0x0102040810204080U) >> 56) << (i * WordSize);
    }
    return places;
}

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
    std::array<std::uint8_t, 16 * PieceSize> numbers{};
    std::size_t count = 0;
    const char* line = block.data();
    const char* const end = block.data() + block.size();
    const auto keep = [&] { numbers_.append(std::span(numbers).first(std::exchange(count, 0))); };
    for (const char* piece = line; end - piece >= std::ptrdiff_t{PieceSize + WordSize};
         piece += PieceSize) {
        if (count > numbers.size() - PieceSize)
            keep();
        for (std::uint64_t feeds = lineFeeds(piece); feeds != 0; feeds &= feeds - 1) {
            const char* const feed = piece + std::countr_zero(feeds);
            const auto length = static_cast<std::size_t>(feed - line);
            unsigned value = ownLine(line, length);
            if (value > HighestNumber)
                value = usualLine(line, length);
            if (value > HighestNumber) {
                keep();
                return {line, static_cast<std::size_t>(end - line)};
            }
            numbers[count++] = static_cast<std::uint8_t>(value);
            line = feed + 1;
        }
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
