// SPDX-License-Identifier: MIT
// A long run and its dialog.
#include "progress/long_run.h"

#include <cfloat>
#include <cmath>

namespace progress {

Pace::Pace(platform::Platform& platform) : platform_(platform), last_(platform.clock.now()) { }

bool Pace::due() const {
    return platform_.clock.now() - last_ >= TurnInterval;
}

bool Pace::turn() {
    if (!due())
        return false;
    platform_.events.turn();
    // Counted from the end of the turn, so that slow painting can't starve the work.
    last_ = platform_.clock.now();
    return true;
}

void Pace::paint() {
    if (!due())
        return;
    platform_.events.paint();
    last_ = platform_.clock.now();
}

void show(forms::Program& program, std::int64_t total, bool cancellable) {
    forms::ProgressForm& form = program.Frm_Progressbar;
    form.xpProgress.Max = static_cast<double>(total);
    form.xpButton.Enabled = cancellable;
    form.Visible = true;
}

void report(forms::Program& program, std::int64_t coup, std::int64_t total, std::int64_t step) {
    program.Frm_Progressbar.Lbl_Status = {coup, total, step};
    program.Frm_Progressbar.xpProgress.Value = static_cast<double>(step);
}

bool cancelled(const forms::Program& program) {
    return program.Frm_Progressbar.Abbruch == 1 || program.Frm_Main.closeRequested;
}

void Form_Unload(forms::Program& program) {
    program.Frm_Progressbar = {};
}

std::string statusText(const forms::StatusLine& line) {
    if (line.step == 0)
        return {};
    return " Status: Berechne " + std::to_string(line.coup) + " / " + std::to_string(line.total)
        + " (" + std::to_string(percent(line.step, line.total)) + " %)";
}

std::int64_t percent(std::int64_t step, std::int64_t total) {
    // The quotient first, then times 100: 23 of 40 is a hair below 57.5 that way, but 57.5 itself
    // where the processor keeps more than a double.
    static_assert(FLT_EVAL_METHOD == 0 || FLT_EVAL_METHOD == 1, "doubles must not be wider");
    const double part = static_cast<double>(step) / static_cast<double>(total);
    return static_cast<std::int64_t>(std::nearbyint(part * 100));
}

} // namespace progress
