// SPDX-License-Identifier: MIT
// A random series.
#include "files/load_save_draw.h"

#include "files/coup_run.h"
#include "files/random.h"
#include "stats/leading_number.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace M_Eingabe {

namespace {

/// The number at the start of the text as a whole number, 0 if the text starts with no digit
/// (blanks before it skipped); nothing beyond 32 bits signed.
std::optional<std::int32_t> count(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.empty() || text.front() < '0' || text.front() > '9')
        return 0;
    return stats::wholeNumber32(stats::leadingNumber(text));
}

} // namespace

void drawSeries(forms::Program& program, platform::Platform& platform) {
    forms::MainForm& form = program.Frm_Main;
    const auto n = count(form.Text[0].Text);
    if (!n) {
        files::tellCountTooLarge(platform);
        return;
    }
    form.Enabled = false;
    progress::show(program, *n, true);
    std::array<std::uint8_t, progress::BlockSize> drawn{};
    files::runCoups(
        program, platform, *n, files::Scrolling::Stays, [&](std::int64_t, std::int64_t most) {
            const auto numbers = std::span(drawn).first(static_cast<std::size_t>(most));
            for (std::uint8_t& number : numbers) {
                files::seed(program.random, platform.clock.coarse());
                number = static_cast<std::uint8_t>(files::toNumber(files::draw(program.random)));
            }
            return numbers;
        });
    form.Enabled = true;
    ++form.focusRequests;
    progress::Form_Unload(program);
    form.Grid[0].ScrollRow(form.Coup);
}

} // namespace M_Eingabe
