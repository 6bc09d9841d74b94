// SPDX-License-Identifier: MIT
// Clocks, medians, interleaved comparisons and the table.
#include "harness.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace bench {

namespace {

double seconds(clockid_t clock) {
    std::timespec now{};
    ::clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

} // namespace

double threadSeconds(pthread_t thread) {
    clockid_t clock = CLOCK_THREAD_CPUTIME_ID;
    ::pthread_getcpuclockid(thread, &clock);
    return seconds(clock);
}

double wallSeconds() {
    return seconds(CLOCK_MONOTONIC);
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Comparison interleaved(
    int rounds, const std::function<double()>& ours, const std::function<double()>& theirs) {
    std::vector<double> one;
    std::vector<double> other;
    for (int i = 0; i < rounds; ++i) {
        one.push_back(ours());
        other.push_back(theirs());
    }
    return {median(one), median(other)};
}

Report::Report() {
    std::setvbuf(stdout, nullptr, _IOLBF, 0); // each line as it comes, into a file too
    std::printf("%-50s %9s %-6s %7s %7s\n", "goal", "measured", "", "reach", "beyond");
}

void Report::goal(const QString& name, double value, const char* unit, const Bounds& bounds,
    const QString& detail) const {
    const char* const verdict = value <= bounds.beyond ? "beyond"
        : value <= bounds.reach                        ? "reached"
                                                       : "MISSED";
    std::printf("%-50s %9.3f %-6s %7.2f %7.2f  %-8s %s\n", qUtf8Printable(name), value, unit,
        bounds.reach, bounds.beyond, verdict, qUtf8Printable(detail));
}

void Report::ratio(const QString& name, const Comparison& times, const Bounds& bounds, double scale,
    const char* unit) const {
    goal(name, times.ours / times.theirs, "x", bounds,
        QString::asprintf("%.3f against %.3f %s", times.ours * scale, times.theirs * scale, unit));
}

void Report::check(bool holds, const QString& what) {
    ++checks_;
    if (holds)
        return;
    ++failed_;
    std::printf("FAILED CHECK: %s\n", qUtf8Printable(what));
}

int Report::close() const {
    std::printf("checks: %d, failed: %d\n", checks_, failed_);
    return checks_ > 0 && failed_ == 0 ? 0 : 1;
}

QString shortNumber(std::int64_t number) {
    return number >= Million ? QString("%1 M").arg(number / Million)
                             : QString("%1 k").arg(number / Thousand);
}

} // namespace bench
