// SPDX-License-Identifier: MIT
// A random series.
#include "files/zufallsserie.h"

#include "files/coup_lauf.h"
#include "files/zufall.h"
#include "stats/zahlentext.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace M_Eingabe {

namespace {

/// The number at the start of the text as a whole number, 0 if the text starts with no digit
/// (blanks before it passed over); nothing beyond 32 bits signed.
std::optional<std::int32_t> anzahl(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.empty() || text.front() < '0' || text.front() > '9')
        return 0;
    return stats::Ganzzahl32(stats::Zahl_am_Anfang(text));
}

} // namespace

void Zufallsserie(forms::Programm& programm, platform::Platform& platform) {
    forms::MainForm& form = programm.Frm_Main;
    const auto n = anzahl(form.Text[0].Text);
    if (!n) {
        files::Meldung_Anzahl(platform);
        return;
    }
    form.Enabled = false;
    progress::Zeigen(programm, *n, true);
    std::array<std::uint8_t, progress::BlockSize> gezogen{};
    files::Lauf_Ausfuehren(
        programm, platform, *n, files::Ansicht::Bleibt, [&](std::int64_t, std::int64_t most) {
            const auto zahlen = std::span(gezogen).first(static_cast<std::size_t>(most));
            for (std::uint8_t& zahl : zahlen) {
                Zufall::Saeen(programm.Zufall, platform.clock.now());
                zahl = static_cast<std::uint8_t>(Zufall::Zahl(Zufall::Ziehen(programm.Zufall)));
            }
            return zahlen;
        });
    form.Enabled = true;
    ++form.FocusRequests;
    progress::Form_Unload(programm);
    form.Grid[0].ScrollRow(form.Coup);
}

} // namespace M_Eingabe
