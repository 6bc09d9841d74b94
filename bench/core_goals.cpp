// SPDX-License-Identifier: MIT
// Load, draw and re-sort without a window, against the bare loops.
#include "data.h"
#include "goals.h"
#include "stage.h"

#include <algorithm>
#include <memory>
#include <numeric>

namespace bench {

namespace {

std::string perCoup(const Comparison& times, std::int64_t coups) {
    const double nano = 1e9 / static_cast<double>(coups);
    return text("%.2f ns against %.2f ns a coup", times.ours * nano, times.theirs * nano);
}

void load(Report& report, std::int64_t coups) {
    const Data data = dataOf(coups);
    const auto ours = [&] {
        const auto stage = std::make_unique<Stage>();
        const double time = timeOf([&] { stage->load(data.file); });
        report.check(stage->counters() == data.counts, "loaded counters");
        report.check(stage->recount() == data.counts, "loaded rows");
        return time;
    };
    const auto bare = [&] {
        Bare made;
        const double time = timeOf([&] { made = bareLoad(data.file); });
        report.check(made.counts == data.counts && made.recount() == data.counts, "bare load");
        return time;
    };
    const Comparison times = interleaved(coups < 10 * Million ? 3 * Rounds : Rounds, ours, bare);
    report.goal({"load " + shortNumber(coups) + ", no window", times.ratio(), "x", 4, 1.5,
        perCoup(times, coups)});
}

void draw(Report& report, std::int64_t coups) {
    const auto ours = [&] {
        const auto stage = std::make_unique<Stage>();
        const double time = timeOf([&] { stage->draw(coups); });
        const Counts counts = stage->counters();
        report.check(counts == stage->recount(), "drawn counters and rows");
        report.check(std::accumulate(counts.begin(), counts.end(), std::int64_t{0}) == coups,
            "number of draws");
        return time;
    };
    const auto bare = [&] {
        Bare made;
        const double time = timeOf([&] { made = bareDraw(coups); });
        report.check(made.numbers().size() == static_cast<std::size_t>(coups)
                && made.counts == made.recount(),
            "bare draw");
        return time;
    };
    const Comparison times = interleaved(Rounds, ours, bare);
    report.goal({"draw " + shortNumber(coups) + ", no window", times.ratio(), "x", 2, 1.2,
        perCoup(times, coups)});
}

/// How many view rows have a text in this column.
std::int64_t filled(const controls::Grid& view, int column) {
    std::int64_t rows = 0;
    for (std::int64_t row = 1; row <= view.RowCount(); ++row)
        rows += view.pattern(view.patternOf(row)).Cell(column).empty() ? 0 : 1;
    return rows;
}

/// Noir, Zero and Rouge stand in columns 2 to 4 of the first family; the third transversale plein
/// of the last family, 7 to 9, in column 4. Told here from the numbers themselves.
void checkSorted(Report& report, const Stage& stage, const Counts& counts, bool first) {
    std::int64_t expected = 0;
    if (first)
        for (const int red : {1, 3, 5, 7, 9, 12, 14, 16, 18, 19, 21, 23, 25, 27, 30, 32, 34, 36})
            expected += counts[static_cast<std::size_t>(red)];
    else
        expected = counts[7] + counts[8] + counts[9];
    report.check(filled(stage.view(), 4) == expected, "re-sorted rows");
}

void resort(Report& report, std::int64_t coups) {
    constexpr int first = 0;
    constexpr int last = 6;
    const Data data = dataOf(coups);
    const auto stage = std::make_unique<Stage>();
    stage->load(data.file);
    const std::vector<std::uint8_t> numbers = bareLoad(data.file).numbers();
    std::vector<std::uint8_t> rows(numbers.size());
    int round = 0;
    const auto ours = [&] {
        const bool toFirst = round++ % 2 == 1;
        const double time = timeOf([&] { stage->family(toFirst ? first : last); });
        checkSorted(report, *stage, data.counts, toFirst);
        return time;
    };
    const auto bare = [&] {
        std::array<std::uint8_t, 256> marks{};
        for (std::size_t i = 0; i < marks.size(); ++i)
            marks[i] = static_cast<std::uint8_t>(3 * i + static_cast<std::size_t>(round));
        const double time = timeOf([&] { bareResort(numbers, marks, rows); });
        std::int64_t expected = 0;
        for (std::size_t z = 0; z < data.counts.size(); ++z)
            expected += data.counts[z] * marks[z];
        report.check(
            std::accumulate(rows.begin(), rows.end(), std::int64_t{0}) == expected, "bare re-sort");
        return time;
    };
    const Comparison times = interleaved(Rounds, ours, bare);
    report.goal({"re-sort " + shortNumber(coups) + ", no window", times.ratio(), "x", 6, 2,
        perCoup(times, coups)});
}

} // namespace

void coreGoals(Report& report) {
    report.section("Logic without a window (processor time)");
    load(report, Million);
    load(report, 10 * Million);
    draw(report, 10 * Million);
    resort(report, 10 * Million);
}

} // namespace bench
