// SPDX-License-Identifier: MIT
// What the work costs with nothing around it. As quick as we can write it, free of portability.
#include "bare_loops.h"

#include "files/zufall.h"

#include <array>
#include <bit>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <memory>
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

/// The number of a line without its LF, or 37 and more: one digit or two, perhaps a blank on either
/// side, perhaps a CR at the end. Without branches, for the digits can't be foreseen.
unsigned number(const char* from, const char* to) {
    std::uint64_t rest = 0;
    std::memcpy(&rest, from, sizeof rest);
    rest &= (std::uint64_t{1} << (8 * (to - from) & 63)) - 1;
    rest >>= (rest & 0xFF) == ' ' ? 8 : 0;
    const auto first = static_cast<unsigned>(rest & 0xFF) - '0';
    const auto second = static_cast<unsigned>(rest >> 8 & 0xFF) - '0';
    const bool two = second <= 9;
    rest >>= two ? 16 : 8;
    rest >>= (rest & 0xFF) == ' ' ? 8 : 0;
    const bool wrong = (first > 9) | ((rest != 0) & (rest != '\r')) | (to - from >= 8);
    return wrong ? 37 : (two ? 10 * first + second : first);
}

/// Stores in chunks, as growing costs nothing else then.
class Store {
public:
    explicit Store(Bare& bare) : bare_(bare) { }

    void add(unsigned value) {
        if (next_ == end_) {
            bare_.chunks.push_back(std::make_unique_for_overwrite<std::uint8_t[]>(Bare::ChunkSize));
            next_ = bare_.chunks.back().get();
            end_ = next_ + Bare::ChunkSize;
        }
        *next_++ = static_cast<std::uint8_t>(value);
    }

    void finish(const std::array<std::int64_t, 37>& counts) {
        const std::size_t room = bare_.chunks.size() * Bare::ChunkSize;
        bare_.size = static_cast<std::int64_t>(room) - (end_ - next_);
        bare_.counts.assign(counts.begin(), counts.end());
    }

private:
    Bare& bare_;
    std::uint8_t* next_ = nullptr;
    std::uint8_t* end_ = nullptr;
};

} // namespace

Counts Bare::recount() const {
    Counts found(37);
    for (std::int64_t left = size; const Chunk& chunk : chunks)
        for (std::size_t i = 0; i < ChunkSize && left > 0; ++i, --left)
            ++found[chunk[i]];
    return found;
}

Bare bareLoad(const std::string& file) {
    Bare bare;
    Store store(bare);
    std::array<std::int64_t, 37> counts{};
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
        for (ssize_t at = 0; at < got; at += 64)
            for (std::uint64_t ends = lineEnds(block + at); ends != 0; ends &= ends - 1) {
                const char* const end = block + at + std::countr_zero(ends);
                if (const unsigned value = number(line, end); value <= 36) {
                    store.add(value);
                    ++counts[value];
                }
                line = end + 1;
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
    std::array<std::int64_t, 37> counts{};
    std::uint64_t state = 0;
    for (std::int64_t i = 0; i < count; ++i) {
        Zufall::Saeen(state, std::chrono::steady_clock::now().time_since_epoch());
        const auto value = static_cast<unsigned>(Zufall::Zahl(Zufall::Ziehen(state)));
        store.add(value);
        ++counts[value];
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
