// SPDX-License-Identifier: MIT
// Throws any bytes, cut into blocks at any place, at the file reader and compares it with a plain
// one.
//
// The first two bytes of an input say how the rest is cut, so that the fuzzer can steer that too.
#include "files/line_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

void demand(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "Fault: %s\n", what);
    std::abort();
}

/// The number of one line, or -1: written for being read, not for speed.
int numberOf(std::string line) {
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!line.empty() && blank(line.back()))
        line.pop_back();
    while (!line.empty() && blank(line.front()))
        line.erase(0, 1);
    if (line.empty())
        return -1;
    int value = 0;
    for (const char c : line) {
        if (c < '0' || c > '9')
            return -1;
        value = std::min(1000, 10 * value + (c - '0'));
    }
    return value <= 36 ? value : -1;
}

std::vector<int> plainly(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    std::vector<int> all;
    std::string line;
    for (const char c : text) {
        if (c != '\r' && c != '\n') {
            line += c;
            continue;
        }
        all.push_back(numberOf(std::move(line)));
        line.clear();
    }
    all.push_back(numberOf(std::move(line)));
    std::erase(all, -1);
    return all;
}

/// The length of the next block: mostly near the sizes at which the reader changes its ways.
std::size_t nextLength(unsigned& random, std::size_t left) {
    constexpr std::array<std::size_t, 12> sizes{1, 2, 3, 7, 8, 63, 64, 71, 72, 80, 200, 5000};
    random = random * 1'103'515'245U + 12'345U;
    const std::size_t length = sizes[(random >> 16) % sizes.size()] + (random >> 24) % 3;
    return std::min(length, left);
}

void readInBlocks(std::string_view text, unsigned random, const std::vector<int>& wanted) {
    files::LineReader reader;
    while (!text.empty()) {
        const std::size_t length = nextLength(random, text.size());
        // In memory of just its size, so that a look beyond its end is seen.
        const auto block = std::make_unique<char[]>(length);
        std::copy_n(text.data(), length, block.get());
        reader.read({block.get(), length});
        text.remove_prefix(length);
    }
    reader.finish();
    auto& numbers = reader.numbers();
    demand(numbers.size() == static_cast<std::int64_t>(wanted.size()), "count of valid lines");
    for (std::size_t i = 0; i < wanted.size(); ++i)
        demand(numbers[static_cast<std::int64_t>(i)] == wanted[i], "number of a line");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    const std::string text(data + 2, data + size);
    readInBlocks(text, data[0] + 256U * data[1], plainly(text));
    return 0;
}
