// SPDX-License-Identifier: MIT
// A run that takes in many coups: what random series and file load have in common.
#pragma once

#include "coup/m_permanenz.h"
#include "files/meldungen.h"
#include "forms/programm.h"
#include "platform/platform.h"
#include "progress/lauf.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <span>

namespace files {

/// Memory set aside during a run, so that there is some to speak of it when memory gives out.
/// Taken by a plain call: a new-expression whose memory nobody reads is left out by compilers.
inline constexpr std::size_t Notvorrat = 1 << 20;

/// What a run leaves to the rest of the machine.
inline constexpr std::uint64_t Reserve = std::uint64_t{256} << 20;

struct Freigabe {
    void operator()(void* vorrat) const noexcept { ::operator delete(vorrat); }
};

/// Throws std::bad_alloc when the machine is about to run out of memory. Many systems promise more
/// than they have and end the program instead of refusing; looking ahead keeps the coups.
inline void Speicher_Pruefen(platform::Platform& platform) {
    if (platform.processes.memoryLeft() < Reserve)
        throw std::bad_alloc();
}

/// Whether the sorted view follows the new coups while the run goes on.
enum class Ansicht { Folgt, Bleibt };

/// Takes in `gesamt` coups in blocks, with the progress dialog and the main window closed to input.
/// `naechste(i, most)` gives the numbers, 0 to 36, of the coups from i on (counted from 0), at
/// least one and at most `most` of them. Ends early when the user cancels, when the program is to
/// end, or, with a message, when memory gives out; the coups so far are kept.
template <class Naechste>
void Lauf_Ausfuehren(forms::Programm& programm, platform::Platform& platform, std::int64_t gesamt,
    Ansicht ansicht, Naechste naechste) {
    std::unique_ptr<void, Freigabe> vorrat(::operator new(Notvorrat));
    progress::Pace pace(platform);
    forms::MainForm& form = programm.Frm_Main;
    const std::int64_t vorher = form.Coup;
    const auto zeigen = [&](std::int64_t schritt) {
        if (ansicht == Ansicht::Folgt)
            form.Grid[0].ScrollRow(form.Coup);
        if (schritt > 0)
            progress::Melden(programm, form.Coup, gesamt, schritt);
    };
    try {
        for (std::int64_t i = 0; i < gesamt && !progress::Abgebrochen(programm);) {
            const std::span<const std::uint8_t> zahlen
                = naechste(i, std::min(progress::BlockSize, gesamt - i));
            M_Permanenz::Coups_Aufnehmen(programm, zahlen);
            i = form.Coup - vorher;
            zeigen(i);
            if (pace.turn())
                Speicher_Pruefen(platform);
        }
    } catch (const std::bad_alloc&) {
        vorrat.reset();
        zeigen(form.Coup - vorher);
        Meldung_Speicher(platform);
    }
}

} // namespace files
