// SPDX-License-Identifier: MIT
// The clocks.
#include "desktop/clock.h"

#include "desktop/system.h"

#include <ctime>

namespace desktop {

std::chrono::nanoseconds Clock::now() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

std::chrono::nanoseconds Clock::coarse() {
    return system::coarseTime();
}

double Clock::secondsSinceMidnight() {
    using namespace std::chrono;
    // The water asks twice per cell, and the time zone is by far the dearest part of the answer.
    // Local time is changed on full quarters of an hour only, so one look at it serves till then.
    const nanoseconds now = system_clock::now().time_since_epoch();
    const std::int64_t quarterHour = now / minutes(15);
    if (quarterHour != quarterHour_) {
        const std::time_t second = now / seconds(1);
        if (const std::tm* local = std::localtime(&second))
            ahead_ = hours(local->tm_hour) + minutes(local->tm_min) + seconds(local->tm_sec)
                - seconds(second) % days(1);
        quarterHour_ = quarterHour;
    }
    return duration<double>((now + ahead_ + days(1)) % days(1)).count();
}

} // namespace desktop
