// SPDX-License-Identifier: MIT
// The clocks.
#pragma once

#include "platform/platform.h"

namespace desktop {

class Clock final : public platform::Clock {
public:
    std::chrono::nanoseconds now() override;
    std::chrono::nanoseconds coarse() override;
    double secondsSinceMidnight() override;

private:
    std::int64_t quarterHour_ = -1; ///< of the last look at the time zone, since 1970
    std::chrono::seconds ahead_{}; ///< of local time, in that quarter of an hour
};

} // namespace desktop
