// SPDX-License-Identifier: MIT
// A long run and its dialog.
#include "progress/lauf.h"

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

void Zeigen(forms::Programm& programm, std::int64_t max, bool abbrechbar) {
    forms::ProgressForm& form = programm.Frm_Progressbar;
    form.xpProgress.Max = static_cast<double>(max);
    form.xpButton.Enabled = abbrechbar;
    form.Visible = true;
}

void Melden(
    forms::Programm& programm, std::int64_t coup, std::int64_t gesamt, std::int64_t schritt) {
    programm.Frm_Progressbar.Lbl_Status = {coup, gesamt, schritt};
    programm.Frm_Progressbar.xpProgress.Value = static_cast<double>(schritt);
}

bool Abgebrochen(const forms::Programm& programm) {
    return programm.Frm_Progressbar.Abbruch == 1 || programm.Frm_Main.CloseRequested;
}

void Form_Unload(forms::Programm& programm) {
    programm.Frm_Progressbar = {};
}

std::string Statustext(const forms::Statuszeile& zeile) {
    if (zeile.schritt == 0)
        return {};
    return " Status: Berechne " + std::to_string(zeile.coup) + " / " + std::to_string(zeile.gesamt)
        + " (" + std::to_string(Prozent(zeile.schritt, zeile.gesamt)) + " %)";
}

std::int64_t Prozent(std::int64_t schritt, std::int64_t gesamt) {
    // The quotient first, then times 100: 23 of 40 is a hair below 57.5 that way.
    const double anteil = static_cast<double>(schritt) / static_cast<double>(gesamt);
    return static_cast<std::int64_t>(std::nearbyint(anteil * 100));
}

} // namespace progress
