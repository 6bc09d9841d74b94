// SPDX-License-Identifier: MIT
// The permanence as a text file.
#include "files/load_save_draw.h"

#include "files/coup_run.h"
#include "files/line_reader.h"

#include <algorithm>
#include <string>
#include <vector>

namespace M_Eingabe {

namespace {

constexpr platform::Filter TextFiles{"Textdateien (*.txt)", "*.txt"};
constexpr std::size_t ReadBlock = 1 << 16;
constexpr std::size_t WriteBlock = 1 << 16;

/// Reads the whole file into `lines`; false if it can't be read (then `error` is set) or if the
/// program is to end.
bool readFile(const forms::Program& program, platform::Platform& platform,
    const platform::FileName& name, files::LineReader& lines, std::error_code& error) {
    const auto reader = platform.files.open(name, error);
    if (!reader)
        return false;
    std::vector<char> block(ReadBlock);
    progress::Pace pace(platform);
    while (!progress::cancelled(program)) {
        const std::size_t count = reader->read(block, error);
        if (error)
            return false;
        if (count == 0) {
            lines.finish();
            return true;
        }
        lines.read({block.data(), count});
        if (pace.turn() && !progress::cancelled(program))
            files::checkMemory(program, platform, lines.numbers().size(), 1);
    }
    return false;
}

/// The lines of the store rows from `row` on, as many as a block holds; moves `row` on.
std::string rows(const controls::Grid& store, std::int64_t& row) {
    std::string text;
    text.reserve(WriteBlock + 8);
    for (; row <= store.RowCount() && text.size() < WriteBlock; ++row) {
        text += ' ';
        text += store.pattern(store.patternOf(row)).Cell(2);
        text += " \r\n";
    }
    return text;
}

/// Writes the whole permanence; what went wrong, if anything.
std::error_code writeFile(
    const controls::Grid& store, platform::Platform& platform, const platform::FileName& name) try {
    std::error_code error;
    const auto writer = platform.files.create(name, error);
    if (!writer)
        return error;
    progress::Pace pace(platform);
    for (std::int64_t row = 1; row <= store.RowCount();) {
        if ((error = writer->write(rows(store, row))))
            return error;
        pace.paint();
    }
    return writer->commit();
} catch (const std::bad_alloc&) {
    return std::make_error_code(std::errc::not_enough_memory);
}

void appendCoups(forms::Program& program, platform::Platform& platform, files::LineReader& lines) {
    const auto& numbers = lines.numbers();
    progress::show(program, numbers.size(), true);
    files::runCoups(program, platform, numbers.size(), files::Scrolling::Follows,
        [&](std::int64_t i, std::int64_t most) {
            lines.release(i);
            const auto run = numbers.run(i);
            return run.first(std::min(run.size(), static_cast<std::size_t>(most)));
        });
}

} // namespace

void Permanenz_Laden(forms::Program& program, platform::Platform& platform) {
    forms::MainForm& form = program.Frm_Main;
    const auto name = platform.dialogs.openFile("Permanenz laden", TextFiles, form.FileName);
    if (!name || name->empty())
        return;
    form.FileName = *name;
    form.Enabled = false;
    files::LineReader lines;
    std::error_code error;
    bool wasRead = false;
    try {
        wasRead = readFile(program, platform, *name, lines, error);
    } catch (const std::bad_alloc&) {
        lines = {};
        error = std::make_error_code(std::errc::not_enough_memory);
    }
    if (error)
        files::tellReadError(platform, *name, error);
    if (wasRead)
        appendCoups(program, platform, lines);
    form.Enabled = true;
    progress::Form_Unload(program);
}

void Permanenz_Speichern(forms::Program& program, platform::Platform& platform) {
    forms::MainForm& form = program.Frm_Main;
    const auto name = platform.dialogs.saveFile("Permanenz speichern", TextFiles, form.FileName);
    if (!name || name->empty())
        return;
    form.FileName = *name;
    if (const std::error_code error = writeFile(form.Grid[1], platform, *name))
        files::tellWriteError(platform, *name, error);
}

} // namespace M_Eingabe
