// SPDX-License-Identifier: MIT
// One source of coups at work by itself, for tools that count instructions.
#include "data.h"
#include "goals.h"
#include "stage.h"

#include <cstdio>
#include <memory>

namespace bench {

namespace {

/// The only function whose instructions are to be counted; a tool finds it by its name.
[[gnu::noinline]] void measured(Stage& stage, const std::string& source, const Data& data) {
    if (source == "load")
        stage.load(data.file);
    else if (source == "draw")
        stage.draw(data.coups);
    else if (source == "resort")
        stage.family(6);
    else
        for (std::int64_t i = 0; i < data.coups; ++i)
            source == "click" ? stage.click(static_cast<int>(i * 7 % 37)) : stage.undo();
}

} // namespace

int single(const std::string& source, std::int64_t count) {
    const Data data = dataOf(count);
    const auto stage = std::make_unique<Stage>();
    // Rows to take back or to re-sort; for the others, what every number's first coup makes ready.
    if (source == "undo" || source == "resort")
        stage->load(data.file);
    else
        for (int number = 0; number < 37; ++number)
            stage->click(number);
    const std::int64_t before = stage->view().RowCount();
    measured(*stage, source, data);
    const std::int64_t after = stage->view().RowCount();
    std::printf("%s: %lld rows before, %lld after\n", source.c_str(),
        static_cast<long long>(before), static_cast<long long>(after));
    const std::int64_t expected
        = source == "undo" ? 0 : source == "resort" ? before : before + count;
    return after == expected ? 0 : 1;
}

} // namespace bench
