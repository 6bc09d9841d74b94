// SPDX-License-Identifier: MIT
// Does the time grow with the permanence where it must, and stay where it must not?
#include "data.h"
#include "goals.h"
#include "grid_stage.h"
#include "process.h"

#include <cmath>
#include <filesystem>

namespace bench {

namespace {

constexpr int SingleActions = 101;

/// What one coup takes in a run, in nanoseconds; what a single action takes, in microseconds.
struct Line {
    std::int64_t coups = 0;
    double load = 0;
    double draw = 0;
    double save = 0;
    double resort = 0;
    double memory = 0; ///< MiB of the whole program
    double click = 0;
    double undo = 0;
    double repaint = 0;
    double scroll = 0;
};

double perCoup(
    std::int64_t coups, const std::function<void()>& prepare, const std::function<void()>& work) {
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
        prepare();
        times.push_back(timeOf(work));
    }
    return median(times) * 1e9 / static_cast<double>(coups);
}

double single(const std::function<void()>& action) {
    std::vector<double> times;
    for (int i = 0; i < SingleActions; ++i) {
        times.push_back(timeOf([&] {
            action();
            QCoreApplication::processEvents();
        }));
    }
    return median(times) * 1e6;
}

void runs(Report& report, Line& line) {
    const Data data = dataOf(line.coups);
    const std::string saved = data.file + ".gespeichert";
    Stage stage;
    const auto reset = [&] { stage.reset(); };
    line.draw = perCoup(line.coups, reset, [&] { stage.draw(line.coups); });
    line.load = perCoup(line.coups, reset, [&] { stage.load(data.file); });
    report.check(stage.counters() == data.counts, "counters at " + shortNumber(line.coups));
    int entry = 0;
    line.resort = perCoup(
        line.coups, [] {}, [&] { stage.family(entry = 6 - entry); });
    line.save = perCoup(
        line.coups, [] {}, [&] { stage.save(saved); });
    report.check(std::filesystem::file_size(saved) == std::filesystem::file_size(data.file)
            && bareLoad(saved).counts == data.counts,
        "saved file of " + shortNumber(line.coups));
    std::filesystem::remove(saved);
}

void actions(Line& line) {
    GridStage grid(line.coups);
    line.click = single([&] { grid.append(); });
    line.undo = single([&] { grid.undo(); });
    line.repaint = single([&] { grid.frame(); });
    grid.view->scrollTo(line.coups / 2);
    line.scroll = single([&] { grid.view->scrollTo(grid.view->top() + 1); });
}

void print(const Report& report, const Line& line) {
    report.line(text("%6s %8.2f %8.2f %8.2f %8.2f %9.1f %9.1f %9.1f %9.1f %9.1f",
        shortNumber(line.coups).c_str(), line.load, line.draw, line.save, line.resort, line.memory,
        line.click, line.undo, line.repaint, line.scroll));
}

} // namespace

void growth(Report& report, const Extent& extent) {
    report.section("Growth: ns a coup in a run, MiB of the whole program, us a single action");
    report.line(text("%6s %8s %8s %8s %8s %9s %9s %9s %9s %9s", "coups", "load", "draw", "save",
        "re-sort", "MiB", "click", "undo", "repaint", "scroll"));
    for (std::int64_t coups = 10 * Thousand; coups <= extent.longest; coups *= 10) {
        Line line;
        line.coups = coups;
        runs(report, line);
        actions(line);
        line.memory = valueOf(runSelf({"--laden", dataOf(coups).file}), "resident") / 0x1p20;
        print(report, line);
    }
}

} // namespace bench
