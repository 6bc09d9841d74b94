// SPDX-License-Identifier: MIT
// A long run and its dialog: status text, bar, and the turns that keep the window alive.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace progress {

/// Coups or rows that are worked on between two looks at the clock.
inline constexpr std::int64_t BlockSize = 4096;

/// The least time from the end of one event turn to the beginning of the next.
inline constexpr std::chrono::milliseconds TurnInterval{8};

/// Gives the surroundings a turn whenever one is due.
class Pace {
public:
    explicit Pace(platform::Platform& platform);
    /// A turn for all events, input included, if one is due. Whether there was one.
    bool turn();
    /// A turn for painting alone, if one is due.
    void paint();

private:
    bool due() const;

    platform::Platform& platform_;
    std::chrono::nanoseconds last_;
};

/// Sets up and shows the progress dialog, without waiting. `total` is the run's.
void show(forms::Program& program, std::int64_t total, bool cancellable);

/// Shows in the dialog that step `step` of `total` is done, with `coup` as first figure.
void report(forms::Program& program, std::int64_t coup, std::int64_t total, std::int64_t step);

/// Whether the run is to stop: by the dialog's button or because the program is to end.
bool cancelled(const forms::Program& program);

/// Unloads the dialog; the next run starts with a fresh one.
void Form_Unload(forms::Program& program);

/// The status text, e.g. " Status: Berechne 41 / 100 (1 %)"; empty before the first step.
std::string statusText(const forms::StatusLine& line);

/// 100 * (step / total) as a whole number, halves to the even neighbour; total above 0.
std::int64_t percent(std::int64_t step, std::int64_t total);

} // namespace progress
