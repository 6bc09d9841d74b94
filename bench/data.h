// SPDX-License-Identifier: MIT
// Permanence files of any length, whose numbers are known without reading them.
#pragma once

#include "bare_loops.h"

#include <cstdint>
#include <string>

namespace bench {

/// A file as the program itself writes it. It is made where it isn't there yet, in the folder
/// "data" beside the benchmark.
struct Data {
    std::string file;
    std::int64_t coups = 0;
    Counts counts; ///< how often each number is in it, counted while it was thought up
};

/// Made once; the reference stays good.
const Data& dataOf(std::int64_t coups);

} // namespace bench
