// SPDX-License-Identifier: MIT
// A run that takes in many coups: what random series and file load have in common.
#pragma once

#include "coup/coups.h"
#include "files/messages.h"
#include "forms/program.h"
#include "platform/platform.h"
#include "progress/long_run.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <span>

namespace files {

/// Reserve, freed before the message. Plain call, as compilers may drop an unused new.
inline constexpr std::size_t EmergencyReserve = 1 << 20;

/// What a run leaves to the rest of the machine.
inline constexpr std::uint64_t LeftToOthers = std::uint64_t{256} << 20;

struct Release {
    void operator()(void* reserve) const noexcept { ::operator delete(reserve); }
};

/// Throws std::bad_alloc when the machine is about to run out of memory and can't give the rows
/// that `coups` more of them need; `kept` bytes for each are there already and become free. Many
/// systems overcommit memory and kill the process; looking ahead keeps the coups.
inline void checkMemory(const forms::Program& program, platform::Platform& platform,
    std::int64_t coups, std::int64_t kept = 0) {
    const auto& grids = program.Frm_Main.Grid;
    const std::int64_t perCoup = grids[0].bytesPerRow() + grids[1].bytesPerRow() - kept;
    const std::uint64_t left = platform.processes.memoryLeft();
    if (left < LeftToOthers && left < static_cast<std::uint64_t>(coups * perCoup))
        throw std::bad_alloc();
}

/// Whether the sorted view follows the new coups while the run goes on.
enum class Scrolling { Follows, Stays };

/// Takes in `total` coups in blocks, with the progress dialog and the main window closed to input.
/// `next(i, most)` returns the numbers, 0 to 36, of the coups from i on (counted from 0), at
/// least one and at most `most` of them. Ends early when the user cancels, when the program is to
/// end, or, with a message, when memory gives out; the coups so far are kept.
template <class Next>
void runCoups(forms::Program& program, platform::Platform& platform, std::int64_t total,
    Scrolling scrolling, Next next) {
    std::unique_ptr<void, Release> reserve(::operator new(EmergencyReserve));
    progress::Pace pace(platform);
    forms::MainForm& form = program.Frm_Main;
    const std::int64_t before = form.Coup;
    const auto show = [&](std::int64_t step) {
        if (step == 0)
            return;
        if (scrolling == Scrolling::Follows)
            form.Grid[0].ScrollRow(form.Coup);
        progress::report(program, form.Coup, total, step);
    };
    try {
        for (std::int64_t i = 0; i < total && !progress::cancelled(program);) {
            const std::span<const std::uint8_t> numbers
                = next(i, std::min(progress::BlockSize, total - i));
            M_Permanenz::takeCoups(program, numbers);
            i = form.Coup - before;
            show(i);
            if (pace.turn() && !progress::cancelled(program))
                checkMemory(program, platform, total - i);
        }
    } catch (const std::bad_alloc&) {
        reserve.reset();
        show(form.Coup - before);
        tellOutOfMemory(platform);
    }
}

} // namespace files
