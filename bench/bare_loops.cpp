// SPDX-License-Identifier: MIT
// What the work costs with nothing around it. As quick as we can write it, free of portability.
#include "bare_loops.h"

#include "files/random.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace bench {

namespace {

constexpr std::size_t BlockSize = 65536;
constexpr std::size_t Overhang = 64; ///< room in front for a line's beginning, behind for a word

/// Places of LF in the 64 bytes from `text` on, one bit each.
std::uint64_t lineEnds(const char* text) {
#if defined(__SSE2__)
    const __m128i feed = _mm_set1_epi8('\n');
    std::uint64_t bits = 0;
    for (int i = 0; i < 4; ++i) {
        __m128i bytes;
        std::memcpy(&bytes, text + 16 * i, sizeof bytes);
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, feed)));
        bits |= std::uint64_t{mask} << (16 * i);
    }
    return bits;
#else
    std::uint64_t bits = 0;
    for (int i = 0; i < 64; ++i)
        bits |= std::uint64_t{text[i] == '\n'} << i;
    return bits;
#endif
}

/// Digits by their characters; what is none makes any sum with it too large for a number.
struct Digits {
    static constexpr std::uint8_t None = 100;

    std::array<std::uint8_t, 256> ones{};
    std::array<std::array<std::uint8_t, 256>, 2> tens{}; ///< of a line with one digit, with two

    constexpr Digits() {
        ones.fill(None);
        tens[0].fill(None);
        tens[1].fill(None);
        tens[0][' '] = 0;
        for (std::uint8_t digit = 0; digit <= 9; ++digit) {
            ones[static_cast<std::size_t>('0' + digit)] = digit;
            tens[1][static_cast<std::size_t>('0' + digit)] = static_cast<std::uint8_t>(10 * digit);
        }
    }
};
constexpr Digits digits;

/// The number of a line without its LF: a blank, one digit or two, a blank, a CR. Without
/// branches, for the digits can't be foreseen. 37 and more for any other line.
unsigned number(const char* from, std::ptrdiff_t length) {
    const unsigned two = length == 5;
    std::uint64_t line = 0;
    std::memcpy(&line, from, sizeof line);
    line <<= 8 * (5 - length) & 63; // so that the second digit stands at the same place in both
    constexpr std::uint64_t fixed = 0xFFFF0000FF;
    constexpr std::uint64_t behind = std::uint64_t{'\r'} << 32 | std::uint64_t{' '} << 24;
    const std::uint64_t expected = behind | (two ? ' ' : 0);
    if ((line & fixed) != expected || (length != 5 && length != 4))
        return 37;
    return unsigned{digits.tens[two][line >> 8 & 0xFF]} + digits.ones[line >> 16 & 0xFF];
}

/// Stores in chunks, as growing costs nothing else then.
class Store {
public:
    explicit Store(Bare& bare) : bare_(bare) { }

    /// Makes sure that so many numbers can be added.
    void room(std::ptrdiff_t count) {
        if (end_ - next_ >= count)
            return;
        finishChunk();
        bare_.chunks.push_back({std::make_unique_for_overwrite<std::uint8_t[]>(ChunkSize), 0});
        next_ = bare_.chunks.back().numbers.get();
        end_ = next_ + ChunkSize;
    }
    void add(unsigned value) { *next_++ = static_cast<std::uint8_t>(value); }

    void finish(const Counts& counts) {
        finishChunk();
        bare_.counts = counts;
    }

private:
    static constexpr std::size_t ChunkSize = 65536;

    void finishChunk() {
        if (!bare_.chunks.empty())
            bare_.chunks.back().size = ChunkSize - static_cast<std::size_t>(end_ - next_);
    }

    Bare& bare_;
    std::uint8_t* next_ = nullptr;
    std::uint8_t* end_ = nullptr;
};

} // namespace

std::vector<std::uint8_t> Bare::numbers() const {
    std::vector<std::uint8_t> all;
    for (const Chunk& chunk : chunks)
        all.insert(all.end(), chunk.numbers.get(), chunk.numbers.get() + chunk.size);
    return all;
}

Counts Bare::recount() const {
    Counts found{};
    for (const std::uint8_t number : numbers())
        ++found[number];
    return found;
}

Bare bareLoad(const std::string& file) {
    Bare bare;
    Store store(bare);
    Counts counts{};
    std::array<char, Overhang + BlockSize + Overhang> buffer{};
    char* const block = buffer.data() + Overhang;
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    std::size_t kept = 0;
    for (;;) {
        const ssize_t got = read(descriptor, block, BlockSize);
        if (got <= 0)
            break;
        std::memset(block + got, 0, Overhang);
        const char* line = block - kept;
        for (ssize_t at = 0; at < got; at += 64) {
            store.room(64);
            for (std::uint64_t ends = lineEnds(block + at); ends != 0; ends &= ends - 1) {
                const char* const end = block + at + std::countr_zero(ends);
                if (const unsigned value = number(line, end - line); value <= 36) {
                    store.add(value);
                    ++counts[value];
                }
                line = end + 1;
            }
        }
        kept = static_cast<std::size_t>(block + got - line);
        if (kept > Overhang)
            kept = 0; // no line of a permanence is that long
        std::memcpy(block - kept, line, kept);
    }
    close(descriptor);
    store.finish(counts);
    return bare;
}

Bare bareDraw(std::int64_t count) {
    Bare bare;
    Store store(bare);
    Counts counts{};
    std::uint64_t state = 0;
    for (std::int64_t i = 0; i < count;) {
        store.room(64);
        for (const std::int64_t end = std::min<std::int64_t>(i + 64, count); i < end; ++i) {
            files::seed(state, std::chrono::nanoseconds(i));
            const auto value = static_cast<unsigned>(files::toNumber(files::draw(state)));
            store.add(value);
            ++counts[value];
        }
    }
    store.finish(counts);
    return bare;
}

void bareResort(const std::vector<std::uint8_t>& numbers,
    const std::array<std::uint8_t, 256>& marks, std::vector<std::uint8_t>& rows) {
    // Pointers of its own, or every byte written might have moved the vectors.
    const std::uint8_t* const from = numbers.data();
    std::uint8_t* const to = rows.data();
    for (std::size_t i = 0, count = numbers.size(); i < count; ++i)
        to[i] = marks[from[i]];
}

} // namespace bench
