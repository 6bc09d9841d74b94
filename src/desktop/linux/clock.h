// SPDX-License-Identifier: MIT
// The computer's clocks.
#pragma once

#include "platform/platform.h"

namespace desktop {

class Clock final : public platform::Clock {
public:
    std::chrono::nanoseconds now() override;
    double secondsSinceMidnight() override;

private:
    std::int64_t quarterHour_ = -1; ///< of the last look at the time zone, since 1970
    std::int64_t secondsAhead_ = 0; ///< of local time, in that quarter of an hour
};

} // namespace desktop
