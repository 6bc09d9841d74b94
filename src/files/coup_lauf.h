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

namespace files {

/// Memory set aside during a run, so that there is some to speak of it when memory gives out.
inline constexpr std::size_t Notvorrat = 1 << 20;

/// Whether the sorted view follows the new coups while the run goes on.
enum class Ansicht { Folgt, Bleibt };

/// Takes in `gesamt` coups whose numbers, 0 to 36, `naechste(i)` gives for i from 1, with the
/// progress dialog and the main window closed to input. Ends early when the user cancels, when the
/// program is to end, or, with a message, when memory gives out; the coups so far are kept.
template <class Naechste>
void Coups_Aufnehmen(forms::Programm& programm, platform::Platform& platform, std::int64_t gesamt,
    Ansicht ansicht, Naechste naechste) {
    auto vorrat = std::make_unique_for_overwrite<std::byte[]>(Notvorrat);
    progress::Pace pace(platform);
    std::int64_t i = 0;
    try {
        while (i < gesamt && !progress::Abgebrochen(programm)) {
            const std::int64_t last = std::min(i + progress::BlockSize, gesamt);
            for (; i < last; ++i)
                M_Permanenz::Coup_Aufnehmen(programm, naechste(i + 1));
            programm.Frm_Main.Grid[0].Refresh();
            if (ansicht == Ansicht::Folgt)
                programm.Frm_Main.Grid[0].ScrollRow(programm.Frm_Main.Coup);
            progress::Melden(programm, programm.Frm_Main.Coup, gesamt, i);
            pace.turn();
        }
    } catch (const std::bad_alloc&) {
        vorrat.reset();
        progress::Melden(programm, programm.Frm_Main.Coup, gesamt, i);
        Meldung_Speicher(platform);
    }
}

} // namespace files
