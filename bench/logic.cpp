// SPDX-License-Identifier: MIT
// The sources of coups without a window: against the bare loops, by their length, and one by
// itself.
#include "data.h"
#include "parts.h"
#include "stage.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <numeric>
#include <stdexcept>

namespace bench {

namespace {

/// What the sources work on.
struct Job {
    explicit Job(std::int64_t coups) : data(dataOf(coups)) { }

    const Data& data;
    std::unique_ptr<Stage> stage = std::make_unique<Stage>();
    int family = 0;
    Bare bare;
    std::vector<std::uint8_t> numbers; ///< for the bare re-sort
    std::vector<std::uint8_t> rows;
    std::array<std::uint8_t, 256> marks{};
};

/// A way by which coups come in or are gone through; only `run` is measured.
struct Source {
    const char* name;
    void (*prepare)(Job&);
    void (*run)(Job&);
    bool (*good)(const Job&);
};

std::int64_t sum(const Counts& counts) {
    return std::accumulate(counts.begin(), counts.end(), std::int64_t{0});
}

void fresh(Job& job) {
    job.stage = std::make_unique<Stage>();
}

void filled(Job& job) {
    if (job.stage->rows() != job.data.coups)
        job.stage->load(job.data.file);
}

/// With what every number's first coup makes ready.
void warm(Job& job) {
    fresh(job);
    for (int coup = 0; coup < 37; ++coup)
        job.stage->click(coup);
}

void bareFilled(Job& job) {
    if (job.numbers.empty())
        job.numbers = bareLoad(job.data.file).numbers();
    job.rows.resize(job.numbers.size());
    for (std::uint8_t step = ++job.marks[0]; std::uint8_t & mark : job.marks)
        mark = step = static_cast<std::uint8_t>(step + 3);
}

/// Red stands in column 4 of the first family, the third transversale plein, 7 to 9, in that of the
/// last. Told here from the numbers themselves.
bool sorted(const Job& job) {
    static constexpr std::array red{
        1, 3, 5, 7, 9, 12, 14, 16, 18, 19, 21, 23, 25, 27, 30, 32, 34, 36};
    const Counts& counts = job.data.counts;
    std::int64_t expected = counts[7] + counts[8] + counts[9];
    if (job.family == 0) {
        expected = 0;
        for (const int number : red)
            expected += counts[static_cast<std::size_t>(number)];
    }
    const controls::Grid& view = job.stage->view();
    std::int64_t found = 0;
    const std::vector<std::int64_t> rows = rowsByPattern(view);
    for (controls::PatternId id = 0; id < rows.size(); ++id)
        if (rows[id] > 0 && !view.pattern(id).Cell(4).empty())
            found += rows[id];
    return found == expected;
}

bool bareSorted(const Job& job) {
    std::int64_t expected = 0;
    for (std::size_t number = 0; number < 37; ++number)
        expected += job.data.counts[number] * job.marks[number];
    return std::accumulate(job.rows.begin(), job.rows.end(), std::int64_t{0}) == expected;
}

const std::array sources{
    Source{"load", fresh, [](Job& job) { job.stage->load(job.data.file); },
        [](const Job& job) {
            return job.stage->counters() == job.data.counts
                && job.stage->recount() == job.data.counts;
        }},
    Source{"bare-load", [](Job& job) { job.bare = {}; },
        [](Job& job) { job.bare = bareLoad(job.data.file); },
        [](const Job& job) {
            return job.bare.counts == job.data.counts && job.bare.recount() == job.data.counts;
        }},
    Source{"draw", fresh, [](Job& job) { job.stage->draw(job.data.coups); },
        [](const Job& job) {
            return job.stage->counters() == job.stage->recount()
                && sum(job.stage->counters()) == job.data.coups;
        }},
    Source{"bare-draw", [](Job& job) { job.bare = {}; },
        [](Job& job) { job.bare = bareDraw(job.data.coups); },
        [](const Job& job) {
            return job.bare.counts == job.bare.recount() && sum(job.bare.counts) == job.data.coups;
        }},
    Source{"re-sort", filled, [](Job& job) { job.stage->family(job.family = 6 - job.family); },
        sorted},
    Source{"bare-re-sort", bareFilled,
        [](Job& job) { bareResort(job.numbers, job.marks, job.rows); }, bareSorted},
    Source{"click", warm,
        [](Job& job) {
            for (std::int64_t coup = 0; coup < job.data.coups; ++coup)
                job.stage->click(coup);
        },
        [](const Job& job) { return sum(job.stage->counters()) == 37 + job.data.coups; }},
    Source{"undo", filled,
        [](Job& job) {
            for (std::int64_t coup = 0; coup < job.data.coups; ++coup)
                job.stage->undo();
        },
        [](const Job& job) { return job.stage->rows() == 0 && sum(job.stage->recount()) == 0; }},
};

const Source& sourceOf(const std::string& name) {
    const auto found = std::find_if(
        sources.begin(), sources.end(), [&](const Source& one) { return one.name == name; });
    return found != sources.end() ? *found : throw std::invalid_argument("no source " + name);
}

double timeOnce(Report& report, const std::string& name, Job& job) {
    const Source& source = sourceOf(name);
    source.prepare(job);
    const double time = timeOf([&] { source.run(job); });
    report.check(source.good(job), name.c_str() + (" of " + shortNumber(job.data.coups)));
    return time;
}

void compare(Report& report, const char* name, std::int64_t coups, const Bounds& bounds) {
    Job job(coups);
    const Comparison times = interleaved(
        coups < 10 * Million ? 3 * Rounds : Rounds, [&] { return timeOnce(report, name, job); },
        [&] { return timeOnce(report, std::string("bare-") + name, job); });
    report.ratio(name + (' ' + shortNumber(coups)) + ", no window", times, bounds,
        1e9 / static_cast<double>(coups), "ns a coup");
}

} // namespace

/// The only function whose instructions are to be counted; a tool finds it by its name.
[[gnu::noinline]] void measured(const Source& source, Job& job) {
    source.run(job);
}

void logicGoals(Report& report) {
    compare(report, "load", Million, {1.5, 1.1});
    compare(report, "load", 10 * Million, {1.5, 1.1});
    compare(report, "draw", 10 * Million, {8, 5});
    compare(report, "re-sort", 10 * Million, {2, 1.5});
}

void growth(Report& report, std::int64_t longest) {
    std::puts("Growth: ns a coup of a run, us of a single action");
    for (std::int64_t coups = 10 * Thousand; coups <= longest; coups *= 10) {
        std::printf("%5s", qUtf8Printable(shortNumber(coups)));
        Job job(coups);
        for (const char* name : {"draw", "load", "re-sort"}) {
            std::vector<double> times;
            for (int round = 0; round < Rounds; ++round)
                times.push_back(timeOnce(report, name, job));
            std::printf("  %s %.2f", name, median(times) * 1e9 / static_cast<double>(coups));
        }
        std::printf("  |%s\n", qUtf8Printable(actionTimes(coups)));
    }
}

int single(const std::string& name, std::int64_t coups) {
    const Source& source = sourceOf(name);
    Job job(coups);
    source.prepare(job);
    measured(source, job);
    return source.good(job) ? 0 : 1;
}

} // namespace bench
