// SPDX-License-Identifier: MIT
// Clocks, medians, interleaved comparisons and the table.
#include "harness.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <ctime>

namespace bench {

namespace {

double seconds(clockid_t clock) {
    std::timespec now{};
    ::clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

const char* verdict(const Goal& goal) {
    if (goal.value <= goal.beyond)
        return "beyond";
    return goal.value <= goal.reach ? "reached" : "MISSED";
}

void print(const Goal& goal) {
    std::printf("%-50s %9.3f %-6s %7.2f %7.2f  %-8s %s\n", goal.name.c_str(), goal.value,
        goal.unit.c_str(), goal.reach, goal.beyond, verdict(goal), goal.detail.c_str());
    std::fflush(stdout);
}

} // namespace

double threadSeconds() {
    return seconds(CLOCK_THREAD_CPUTIME_ID);
}

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

double largest(const std::vector<double>& values) {
    return *std::max_element(values.begin(), values.end());
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

void Report::section(const std::string& title) const {
    std::printf("\n== %s\n", title.c_str());
    std::fflush(stdout);
}

void Report::line(const std::string& text) const {
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
}

void Report::goal(const Goal& goal) {
    goals_.push_back(goal);
    print(goal);
}

void Report::check(bool holds, const std::string& what) {
    ++checks_;
    if (holds)
        return;
    failed_.push_back(what);
    line("FAILED CHECK: " + what);
}

int Report::close() const {
    section("All goals");
    std::printf("%-50s %9s %-6s %7s %7s\n", "goal", "measured", "", "reach", "beyond");
    for (const Goal& goal : goals_)
        print(goal);
    std::printf("\nchecks: %d, failed: %zu\n", checks_, failed_.size());
    for (const std::string& what : failed_)
        line("FAILED CHECK: " + what);
    return failed_.empty() ? 0 : 1;
}

std::string text(const char* format, ...) {
    std::array<char, 512> buffer{};
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(buffer.data(), buffer.size(), format, arguments);
    va_end(arguments);
    return buffer.data();
}

std::string shortNumber(std::int64_t number) {
    return number >= Million ? std::to_string(number / Million) + " M"
                             : std::to_string(number / Thousand) + " k";
}

} // namespace bench
