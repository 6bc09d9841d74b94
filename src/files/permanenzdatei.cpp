// SPDX-License-Identifier: MIT
// The permanence as a text file.
#include "files/permanenzdatei.h"

#include "files/coup_lauf.h"
#include "files/zeilenleser.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace M_Eingabe {

namespace {

constexpr platform::Filter Textdateien{"Textdateien (*.txt)", "*.txt"};
constexpr std::size_t ReadBlock = 1 << 16;
constexpr std::size_t WriteBlock = 1 << 16;

/// Reads the whole file into `leser`; false if it can't be read (then `error` is set) or if the
/// program is to end.
bool einlesen(const forms::Programm& programm, platform::Platform& platform,
    const platform::FileName& name, files::Zeilenleser& leser, std::error_code& error) {
    const auto reader = platform.files.open(name, error);
    if (!reader)
        return false;
    std::vector<char> block(ReadBlock);
    progress::Pace pace(platform);
    while (!progress::Abgebrochen(programm)) {
        const std::size_t count = reader->read(block, error);
        if (error)
            return false;
        if (count == 0) {
            leser.ende();
            return true;
        }
        leser.lesen({block.data(), count});
        if (pace.turn())
            files::Speicher_Pruefen(platform);
    }
    return false;
}

/// The lines of the store rows from `row` on, as many as a block holds; moves `row` on.
std::string zeilen(const controls::Grid& speicher, std::int64_t& row) {
    std::string lines;
    lines.reserve(WriteBlock + 8);
    for (; row <= speicher.RowCount() && lines.size() < WriteBlock; ++row) {
        lines += ' ';
        lines += speicher.Pattern(speicher.PatternOf(row)).Cell(2);
        lines += " \r\n";
    }
    return lines;
}

/// Writes the whole permanence; what went wrong, if anything.
std::error_code schreiben(const controls::Grid& speicher, platform::Platform& platform,
    const platform::FileName& name) try {
    std::error_code error;
    const auto writer = platform.files.create(name, error);
    if (!writer)
        return error;
    progress::Pace pace(platform);
    for (std::int64_t row = 1; row <= speicher.RowCount();) {
        if ((error = writer->write(zeilen(speicher, row))))
            return error;
        pace.paint();
    }
    return writer->commit();
} catch (const std::bad_alloc&) {
    return std::make_error_code(std::errc::not_enough_memory);
}

void anhaengen(forms::Programm& programm, platform::Platform& platform, files::Zeilenleser& leser) {
    auto& zahlen = leser.zahlen();
    progress::Zeigen(programm, zahlen.size(), true);
    files::Lauf_Ausfuehren(programm, platform, zahlen.size(), files::Ansicht::Folgt,
        [&](std::int64_t i, std::int64_t most) {
            zahlen.release(i); // what has been taken in isn't needed any more
            const auto run = std::as_const(zahlen).run(i);
            return run.first(std::min(run.size(), static_cast<std::size_t>(most)));
        });
}

} // namespace

void Permanenz_Laden(forms::Programm& programm, platform::Platform& platform) {
    forms::MainForm& form = programm.Frm_Main;
    const auto name = platform.dialogs.openFile("Permanenz laden", Textdateien, form.FileName);
    if (!name || name->empty())
        return;
    form.FileName = *name;
    form.Enabled = false;
    files::Zeilenleser leser;
    std::error_code error;
    bool gelesen = false;
    try {
        gelesen = einlesen(programm, platform, *name, leser, error);
    } catch (const std::bad_alloc&) {
        leser.zahlen().clear();
        error = std::make_error_code(std::errc::not_enough_memory);
    }
    if (error)
        files::Meldung_Lesen(platform, *name, error);
    if (gelesen)
        anhaengen(programm, platform, leser);
    form.Enabled = true;
    progress::Form_Unload(programm);
}

void Permanenz_Speichern(forms::Programm& programm, platform::Platform& platform) {
    forms::MainForm& form = programm.Frm_Main;
    const auto name = platform.dialogs.saveFile("Permanenz speichern", Textdateien, form.FileName);
    if (!name || name->empty())
        return;
    form.FileName = *name;
    if (const std::error_code error = schreiben(form.Grid[1], platform, *name))
        files::Meldung_Schreiben(platform, *name, error);
}

} // namespace M_Eingabe
