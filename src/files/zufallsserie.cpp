// SPDX-License-Identifier: MIT
// A random series.
#include "files/zufallsserie.h"

#include "files/coup_lauf.h"
#include "files/zufall.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <span>

namespace M_Eingabe {

namespace {

/// The whole number at the start of the text, blanks before it passed over, 0 if there is none;
/// nothing beyond 32 bits signed. A minus sign is no way to ask for draws and reads as none.
std::optional<std::int32_t> anzahl(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.starts_with('-'))
        return 0;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    std::int32_t count = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), count);
    if (result.ec == std::errc::result_out_of_range)
        return std::nullopt;
    return std::max(count, 0);
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
    files::Coups_Aufnehmen(
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
