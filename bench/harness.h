// SPDX-License-Identifier: MIT
// Clocks, medians, interleaved comparisons, and the table that the benchmark prints.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <pthread.h>

namespace bench {

inline constexpr std::int64_t Thousand = 1'000;
inline constexpr std::int64_t Million = 1'000'000;

/// How often a comparison is made at least; a median of fewer says little.
inline constexpr int Rounds = 9;

/// Seconds of processor time that this thread has used: what others do at the same time on the
/// machine hardly shows in it.
double threadSeconds();

/// The same of another thread.
double threadSeconds(pthread_t thread);

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
double largest(const std::vector<double>& values);

/// The medians of two kinds of work.
struct Comparison {
    double ours = 0;
    double theirs = 0;
    double ratio() const { return ours / theirs; }
};

/// Measures in turns, A B A B, so that a change of the machine's speed hits both. Each function
/// gives what it took.
Comparison interleaved(
    int rounds, const std::function<double()>& ours, const std::function<double()>& theirs);

/// A goal and what was measured; less is better.
struct Goal {
    std::string name;
    double value = 0;
    std::string unit; ///< "x" for a ratio
    double reach = 0;
    double beyond = 0;
    std::string detail;
};

/// Prints goals, checks and remarks as they come, and repeats all goals as one table at the end.
class Report {
public:
    void section(const std::string& title) const;
    void line(const std::string& text) const;
    void goal(const Goal& goal);
    /// A fact that must hold for the numbers to mean anything.
    void check(bool holds, const std::string& what);
    /// Prints the table of goals and the checks that failed. The program's exit code: 1 if a check
    /// failed. A goal that is missed is a number to look at, no failure.
    int close() const;

private:
    std::vector<Goal> goals_;
    std::vector<std::string> failed_;
    int checks_ = 0;
};

/// As printf, into a string.
[[gnu::format(printf, 1, 2)]] std::string text(const char* format, ...);

/// "10 k", "100 M".
std::string shortNumber(std::int64_t number);

} // namespace bench
