// SPDX-License-Identifier: MIT
// What the program says when something fails it.
#include "files/meldungen.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace files {

namespace {

constexpr std::string_view Titel = "Fehler";

struct Grundzeile {
    std::errc code;
    std::string_view text;
};

constexpr std::array Gruende{
    Grundzeile{std::errc::no_such_file_or_directory,
        "Die Datei oder der Ordner wurde nicht "
        "gefunden."},
    Grundzeile{std::errc::permission_denied, "Die Zugriffsrechte fehlen."},
    Grundzeile{std::errc::operation_not_permitted, "Die Zugriffsrechte fehlen."},
    Grundzeile{std::errc::read_only_file_system, "Der Datenträger ist schreibgeschützt."},
    Grundzeile{std::errc::is_a_directory, "Es ist ein Ordner, keine Datei."},
    Grundzeile{std::errc::not_a_directory, "Der Pfad führt nicht durch einen Ordner."},
    Grundzeile{std::errc::not_supported, "Es ist keine gewöhnliche Datei."},
    Grundzeile{std::errc::invalid_argument, "Es ist keine gewöhnliche Datei."},
    Grundzeile{std::errc::no_space_on_device, "Der Datenträger ist voll."},
    Grundzeile{std::errc::file_too_large, "Die Datei wird zu groß."},
    Grundzeile{std::errc::filename_too_long, "Der Dateiname ist zu lang."},
    Grundzeile{std::errc::too_many_symbolic_link_levels, "Die Verknüpfung führt im Kreis."},
    Grundzeile{std::errc::too_many_files_open, "Es sind zu viele Dateien geöffnet."},
    Grundzeile{std::errc::too_many_files_open_in_system, "Es sind zu viele Dateien geöffnet."},
    Grundzeile{std::errc::not_enough_memory, "Der Arbeitsspeicher reicht nicht aus."},
    Grundzeile{std::errc::text_file_busy, "Die Datei wird gerade benutzt."},
    Grundzeile{std::errc::io_error, "Der Datenträger meldet einen Fehler."},
};

void melden(platform::Platform& platform, const std::string& text) {
    platform.dialogs.message(Titel, text, platform::Icon::Critical);
}

} // namespace

std::string Grund(const std::error_code& error) {
    const auto* const found = std::find_if(Gruende.begin(), Gruende.end(),
        [&](const Grundzeile& zeile) { return error == zeile.code; });
    if (found != Gruende.end())
        return std::string(found->text);
    return "Unerwarteter Fehler Nr. " + std::to_string(error.value()) + ".";
}

void Meldung_Lesen(
    platform::Platform& platform, const platform::FileName& name, const std::error_code& error) {
    melden(platform,
        "Die Datei „" + name + "“ kann nicht gelesen werden.\n" + Grund(error)
            + "\nDie Permanenz ist unverändert.");
}

void Meldung_Schreiben(
    platform::Platform& platform, const platform::FileName& name, const std::error_code& error) {
    melden(platform,
        "Die Datei „" + name + "“ kann nicht gespeichert werden.\n" + Grund(error)
            + "\nEine schon vorhandene Datei ist unverändert.");
}

void Meldung_Speicher(platform::Platform& platform) {
    melden(platform,
        "Der Arbeitsspeicher reicht nicht aus.\n"
        "Die bis hierher erfassten Coups bleiben erhalten.");
}

void Meldung_Anzahl(platform::Platform& platform) {
    melden(platform, "Diese Anzahl ist zu groß.\nEs wurde kein Coup gezogen.");
}

} // namespace files
