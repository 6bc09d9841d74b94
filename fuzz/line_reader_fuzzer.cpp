// SPDX-License-Identifier: MIT
// Throws any bytes, cut into blocks at any place, at the file reader and compares it with a plain
// one.
//
// The first two bytes of an input say how the rest is cut, so that the fuzzer can steer that too.
#include "support/plain_reader.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    const std::string text(data + 2, data + size);
    unsigned random = data[0] + 256U * data[1];
    // Mostly near the lengths at which the reader changes its ways.
    const auto length = [&random] {
        constexpr std::array<std::size_t, 12> sizes{1, 2, 3, 7, 8, 63, 64, 71, 72, 80, 200, 5000};
        random = random * 1'103'515'245U + 12'345U;
        return sizes[(random >> 16) % sizes.size()] + (random >> 24) % 3;
    };
    if (support::readInBlocks(text, length) != support::readPlainly(text)) {
        std::fputs("Fault: the two readers differ\n", stderr);
        std::abort();
    }
    return 0;
}
