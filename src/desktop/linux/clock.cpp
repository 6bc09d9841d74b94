// SPDX-License-Identifier: MIT
// The computer's clocks.
#include "desktop/linux/clock.h"

#include <ctime>

namespace desktop {

namespace {

constexpr std::int64_t SecondsPerDay = std::int64_t{24} * 60 * 60;
constexpr std::int64_t SecondsPerQuarterHour = std::int64_t{15} * 60;
constexpr double SecondsPerNanosecond = 1e-9;

} // namespace

std::chrono::nanoseconds Clock::now() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

double Clock::secondsSinceMidnight() {
    // Every draw of a long series asks, and the time zone is by far the dearest part of the answer.
    // Local time is changed on full quarters of an hour only, so one look at it serves till then.
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const std::int64_t quarterHour = now.tv_sec / SecondsPerQuarterHour;
    if (quarterHour != quarterHour_) {
        std::tm local{};
        if (::localtime_r(&now.tv_sec, &local) != nullptr)
            secondsAhead_ = local.tm_gmtoff;
        quarterHour_ = quarterHour;
    }
    const std::int64_t second = (now.tv_sec + secondsAhead_ + SecondsPerDay) % SecondsPerDay;
    return static_cast<double>(second) + static_cast<double>(now.tv_nsec) * SecondsPerNanosecond;
}

} // namespace desktop
