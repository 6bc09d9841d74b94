// SPDX-License-Identifier: MIT
// One source of coups at work by itself, for tools that count instructions.
#include "data.h"
#include "goals.h"
#include "stage.h"

#include <array>
#include <cstdio>
#include <memory>
#include <vector>

namespace bench {

namespace {

/// What there is to measure.
struct Job {
    std::string source;
    Data data;
    std::unique_ptr<Stage> stage = std::make_unique<Stage>();
    Bare bare;
    std::vector<std::uint8_t> numbers; ///< for the bare re-sort
    std::vector<std::uint8_t> rows;
    std::array<std::uint8_t, 256> marks{};
};

/// The only function whose instructions are to be counted; a tool finds it by its name.
[[gnu::noinline]] void measured(Job& job) {
    if (job.source == "load")
        job.stage->load(job.data.file);
    else if (job.source == "draw")
        job.stage->draw(job.data.coups);
    else if (job.source == "resort")
        job.stage->family(6);
    else if (job.source == "bare-load")
        job.bare = bareLoad(job.data.file);
    else if (job.source == "bare-draw")
        job.bare = bareDraw(job.data.coups);
    else if (job.source == "bare-resort")
        bareResort(job.numbers, job.marks, job.rows);
    else
        for (std::int64_t i = 0; i < job.data.coups; ++i)
            job.source == "click" ? job.stage->click(static_cast<int>(i * 7 % 37))
                                  : job.stage->undo();
}

} // namespace

int single(const std::string& source, std::int64_t count) {
    Job job;
    job.source = source;
    job.data = dataOf(count);
    const bool bare = source.starts_with("bare");
    // Rows to take back or to re-sort; for the others, what every number's first coup makes ready.
    if (source == "undo" || source == "resort")
        job.stage->load(job.data.file);
    else
        for (int number = 0; number < 37; ++number)
            job.stage->click(number);
    job.numbers.resize(static_cast<std::size_t>(count));
    job.rows.resize(static_cast<std::size_t>(count));
    const std::int64_t before = job.stage->view().RowCount();
    measured(job);
    const std::int64_t after = job.stage->view().RowCount();
    std::printf("%s: %lld rows before, %lld after, %lld bare\n", source.c_str(),
        static_cast<long long>(before), static_cast<long long>(after),
        static_cast<long long>(job.bare.numbers().size()));
    const std::int64_t expected = source == "undo" ? 0
        : source == "resort" || bare               ? before
                                                   : before + count;
    return after == expected ? 0 : 1;
}

} // namespace bench
