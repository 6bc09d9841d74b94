// SPDX-License-Identifier: MIT
// Clocks, medians, interleaved comparisons, and the table that the benchmark prints.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

#include <pthread.h>

namespace bench {

inline constexpr std::int64_t Thousand = 1'000;
inline constexpr std::int64_t Million = 1'000'000;

/// How often a comparison is made at least; a median of fewer says little.
inline constexpr int Rounds = 9;

/// Seconds of processor time that a thread has used: what others do at the same time on the
/// machine hardly shows in it.
double threadSeconds(pthread_t thread = ::pthread_self());

/// Seconds that have passed.
double wallSeconds();

/// How much processor time a piece of work takes.
template <class Work>
double timeOf(Work work) {
    const double before = threadSeconds();
    work();
    return threadSeconds() - before;
}

double median(std::vector<double> values);

/// The medians of two kinds of work.
struct Comparison {
    double ours = 0;
    double theirs = 0;
};

/// Measures in turns, A B A B, so that a change of the machine's speed hits both. Each function
/// gives what it took.
Comparison interleaved(
    int rounds, const std::function<double()>& ours, const std::function<double()>& theirs);

/// What is to be reached, and what would be better still; less is better.
struct Bounds {
    double reach = 0;
    double beyond = 0;
};

/// Prints each goal as a line of one table, and each check that fails.
class Report {
public:
    Report();
    void goal(const QString& name, double value, const char* unit, const Bounds& bounds,
        const QString& detail) const;
    /// A goal that is a ratio; its times are told in a unit of which `scale` make a second.
    void ratio(const QString& name, const Comparison& times, const Bounds& bounds, double scale,
        const char* unit) const;
    /// A fact that must hold for the numbers to mean anything.
    void check(bool holds, const QString& what);
    /// The program's exit code: 1 if a check failed, or none was made. A goal that is missed is a
    /// number to look at, no failure.
    int close() const;

private:
    int checks_ = 0;
    int failed_ = 0;
};

/// "10 k", "100 M".
QString shortNumber(std::int64_t number);

} // namespace bench
