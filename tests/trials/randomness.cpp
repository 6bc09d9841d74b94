// SPDX-License-Identifier: MIT
// Draws long series through the program and asks whether a wheel could have made them: how often
// each number falls, which follows which, how long runs and gaps are.
//
//   randomness DRAWS [REPEATS [SEED]]
//
// Each series is drawn twice: at the clock's real speed and with a clock that stands still.
#include "support/stage.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <utility>

namespace {

constexpr double Numbers = 37;
constexpr double FewestExpected = 25;
constexpr double Bound
    = 4.5; // standard deviations: a good generator crosses it 7 times in a million

using Counts = std::vector<double>;

/// Chi-square as standard deviations (Wilson and Hilferty's cube root). Classes of which too few
/// are expected are thrown together with the ones behind them.
double deviation(const Counts& counts, const Counts& shares) {
    double total = 0;
    for (const double count : counts)
        total += count;
    double sum = 0;
    double classes = 0;
    double is = 0;
    double wanted = 0;
    double rest = total;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        is += counts[i];
        wanted += shares[i] * total;
        rest -= shares[i] * total;
        if (wanted < FewestExpected || (rest < FewestExpected && i + 1 < counts.size()))
            continue;
        sum += (is - wanted) * (is - wanted) / wanted;
        ++classes;
        is = wanted = 0;
    }
    const double freedom = classes - 1;
    const double spread = 2 / (9 * freedom);
    return (std::cbrt(sum / freedom) - (1 - spread)) / std::sqrt(spread);
}

/// Shares of lengths 1, 2, ... when each next step goes on with probability `onward`.
Counts lengths(double onward, std::size_t classes) {
    Counts shares(classes);
    for (std::size_t i = 0; i + 1 < classes; ++i)
        shares[i] = (1 - onward) * std::pow(onward, static_cast<double>(i));
    shares.back() = std::pow(onward, static_cast<double>(classes - 1));
    return shares;
}

void count(Counts& counts, std::size_t length) {
    ++counts[std::min(length, counts.size()) - 1];
}

/// The deviation of the gaps between two falls of the same number, over all numbers.
double gaps(const std::vector<int>& series) {
    Counts counts(1200);
    std::vector<std::size_t> last(37, series.size());
    for (std::size_t i = 0; i < series.size(); ++i) {
        std::size_t& before = last[static_cast<std::size_t>(series[i])];
        if (before < i)
            count(counts, i - before);
        before = i;
    }
    return deviation(counts, lengths(1 - 1 / Numbers, counts.size()));
}

/// The deviation of the lengths of runs of numbers above 18, and of those that aren't.
double runs(const std::vector<int>& series, bool high) {
    Counts counts(60);
    std::size_t length = 0;
    for (const int number : series)
        if ((number > 18) == high)
            ++length;
        else if (length > 0)
            count(counts, std::exchange(length, 0));
    return deviation(counts, lengths((high ? 18 : 19) / Numbers, counts.size()));
}

/// The deviation of pairs that stand `lag` apart; no draw is in two of them.
double pairs(const std::vector<int>& series, std::size_t lag) {
    Counts counts(37 * 37);
    for (std::size_t block = 0; block + 2 * lag <= series.size(); block += 2 * lag)
        for (std::size_t i = block; i < block + lag; ++i)
            ++counts[static_cast<std::size_t>(37 * series[i] + series[i + lag])];
    return deviation(counts, Counts(counts.size(), 1 / Numbers / Numbers));
}

double singles(const std::vector<int>& series) {
    Counts counts(37);
    for (const int number : series)
        ++counts[static_cast<std::size_t>(number)];
    return deviation(counts, Counts(37, 1 / Numbers));
}

struct RealClock : platform::Clock {
    std::chrono::nanoseconds now() override {
        return std::chrono::steady_clock::now().time_since_epoch();
    }
    std::chrono::nanoseconds coarse() override { return now(); }
    double secondsSinceMidnight() override { return 0; }
};

std::vector<int> draw(std::uint64_t state, bool standing, const std::string& draws) {
    support::Stage stage;
    RealClock real;
    support::Clock still;
    still.time = std::chrono::nanoseconds(state % 1'000'000'007);
    still.step = {};
    platform::Clock& clock = standing ? static_cast<platform::Clock&>(still) : real;
    platform::Platform platform{stage.events, stage.dialogs, stage.files, clock, stage.media,
        stage.registry, stage.processes};
    stage.program.random = state;
    Frm_Main::Text_Change(stage.program, stage.platform, 0, draws);
    std::int16_t enter = 13;
    Frm_Main::Text_KeyPress(stage.program, platform, 0, enter);
    std::array<int, 256> numberOf{};
    numberOf.fill(-1);
    const controls::Grid& store = stage.main.Grid[1];
    std::vector<int> series;
    series.reserve(static_cast<std::size_t>(store.RowCount()));
    for (std::int64_t row = 1; row <= store.RowCount(); ++row) {
        int& number = numberOf.at(store.patternOf(row));
        if (number < 0)
            number = std::stoi(store.Row(row).Cell(2));
        series.push_back(number);
    }
    return series;
}

} // namespace

int main(int argc, char* argv[]) {
    const std::string draws = argc > 1 ? argv[1] : "10000000";
    const int repeats = argc > 2 ? std::atoi(argv[2]) : 1;
    const unsigned seed = argc > 3 ? static_cast<unsigned>(std::atoll(argv[3])) : 1;
    std::mt19937_64 states(seed);
    double farthest = 0;
    long long total = 0;
    for (int i = 0; i < 2 * repeats; ++i) {
        // The first series of each clock begins as the program does.
        const std::uint64_t state = i < 2 ? 0 : states();
        const std::vector<int> series = draw(state, i % 2 == 1, draws);
        if (std::to_string(series.size()) != draws)
            return 1;
        total += static_cast<long long>(series.size());
        const std::array found{singles(series), pairs(series, 1), pairs(series, 2),
            pairs(series, 4096), runs(series, true), runs(series, false), gaps(series)};
        std::printf("%s clock: numbers %+.2f, pairs %+.2f, at 2 %+.2f, at 4096 %+.2f, "
                    "runs %+.2f %+.2f, gaps %+.2f\n",
            i % 2 == 1 ? "standing" : "real", found[0], found[1], found[2], found[3], found[4],
            found[5], found[6]);
        for (const double deviation : found)
            farthest = std::max(farthest, std::abs(deviation));
    }
    std::printf("randomness: %lld draws, farthest deviation %.2f of %.1f allowed, seed %u\n", total,
        farthest, Bound, seed);
    return farthest < Bound ? 0 : 1;
}
