// SPDX-License-Identifier: MIT
// Draws long series through the program and asks whether a wheel could have made them: how often
// each number falls, by how much it steps to the next one and to one far behind, how long runs are.
//
//   randomness DRAWS [REPEATS [SEED]]
//
// Each series is drawn twice: at the clock's real speed and with a clock that stands still.
#include "desktop/clock.h"
#include "support/stage.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <random>

namespace {

constexpr double Bound = 4.5; // standard deviations: a good one crosses it 7 times in a million
constexpr std::size_t Lengths = 16; // of runs; longer ones count as the last

/// Chi-square of counts against their shares, as standard deviations (Wilson and Hilferty).
template <std::size_t Classes>
double deviation(const std::array<double, Classes>& counts, const auto& share) {
    double total = 0;
    double sum = 0;
    for (const double count : counts)
        total += count;
    for (std::size_t i = 0; i < Classes; ++i)
        sum += std::pow(counts[i] - total * share(i), 2) / (total * share(i));
    const double spread = 2.0 / (9.0 * (Classes - 1));
    return (std::cbrt(sum / (Classes - 1)) - (1 - spread)) / std::sqrt(spread);
}

/// How often each number falls (lag 0), or each step from a draw to the one `lag` further on.
double steps(const std::vector<int>& series, std::size_t lag) {
    std::array<double, 37> counts{};
    for (std::size_t i = lag; i < series.size(); ++i)
        ++counts[static_cast<std::size_t>(series[i] + (lag > 0 ? 37 - series[i - lag] : 0)) % 37];
    return deviation(counts, [](std::size_t) { return 1 / 37.0; });
}

/// The lengths of runs of numbers above 18.
double runs(const std::vector<int>& series) {
    std::array<double, Lengths> counts{};
    std::size_t length = 0;
    for (const int number : series) {
        if (number <= 18 && length > 0)
            ++counts[std::min(length, Lengths) - 1];
        length = number > 18 ? length + 1 : 0;
    }
    return deviation(counts, [](std::size_t i) {
        const double onward = 18 / 37.0;
        return std::pow(onward, i) * (i + 1 < Lengths ? 1 - onward : 1);
    });
}

std::vector<int> draw(std::uint64_t state, bool standing, const std::string& draws) {
    support::Stage stage;
    desktop::Clock real;
    stage.clock.step = {};
    platform::Clock& clock = standing ? static_cast<platform::Clock&>(stage.clock) : real;
    platform::Platform platform{stage.events, stage.dialogs, stage.files, clock, stage.media,
        stage.registry, stage.processes};
    stage.program.random = state;
    Frm_Main::Text_Change(stage.program, stage.platform, 0, draws);
    std::int16_t enter = 13;
    Frm_Main::Text_KeyPress(stage.program, platform, 0, enter);
    return support::numbers(stage.program);
}

} // namespace

int main(int argc, char* argv[]) {
    const std::string draws = argc > 1 ? argv[1] : "10000000";
    const int repeats = argc > 2 ? std::stoi(argv[2]) : 1;
    std::mt19937_64 states(argc > 3 ? std::stoul(argv[3]) : 1);
    double farthest = 0;
    for (int i = 0; i < 2 * repeats; ++i) {
        // The first series of each clock begins as the program does.
        const std::vector<int> series = draw(i < 2 ? 0 : states(), i % 2 == 1, draws);
        if (std::to_string(series.size()) != draws)
            return 1;
        const std::array found{steps(series, 0), steps(series, 1), steps(series, 2),
            steps(series, 4096), runs(series)};
        std::printf("%s clock: numbers %+.2f, steps %+.2f, over 2 %+.2f, over 4096 %+.2f, "
                    "runs %+.2f\n",
            i % 2 == 1 ? "standing" : "real", found[0], found[1], found[2], found[3], found[4]);
        for (const double far : found)
            farthest = std::max(farthest, std::abs(far));
    }
    std::printf("randomness: farthest deviation %.2f of %.1f allowed\n", farthest, Bound);
    return farthest < Bound ? 0 : 1;
}
