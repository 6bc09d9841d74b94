// SPDX-License-Identifier: MIT
// Error messages.
#include "files/messages.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace files {

namespace {

constexpr std::string_view Title = "Fehler";

struct Reason {
    std::errc code;
    std::string_view text;
};

constexpr std::array Reasons{
    Reason{std::errc::no_such_file_or_directory,
        "Die Datei oder der Ordner wurde nicht "
        "gefunden."},
    Reason{std::errc::permission_denied, "Die Zugriffsrechte fehlen."},
    Reason{std::errc::operation_not_permitted, "Die Zugriffsrechte fehlen."},
    Reason{std::errc::read_only_file_system, "Der Datenträger ist schreibgeschützt."},
    Reason{std::errc::is_a_directory, "Es ist ein Ordner, keine Datei."},
    Reason{std::errc::not_a_directory, "Der Pfad führt nicht durch einen Ordner."},
    Reason{std::errc::not_supported, "Es ist keine gewöhnliche Datei."},
    Reason{std::errc::invalid_argument, "Es ist keine gewöhnliche Datei."},
    Reason{std::errc::no_space_on_device, "Der Datenträger ist voll."},
    Reason{std::errc::file_too_large, "Die Datei wird zu groß."},
    Reason{std::errc::filename_too_long, "Der Dateiname ist zu lang."},
    Reason{std::errc::too_many_symbolic_link_levels, "Die Verknüpfung führt im Kreis."},
    Reason{std::errc::too_many_files_open, "Es sind zu viele Dateien geöffnet."},
    Reason{std::errc::too_many_files_open_in_system, "Es sind zu viele Dateien geöffnet."},
    Reason{std::errc::not_enough_memory, "Der Arbeitsspeicher reicht nicht aus."},
    Reason{std::errc::text_file_busy, "Die Datei wird gerade benutzt."},
    Reason{std::errc::io_error, "Der Datenträger meldet einen Fehler."},
};

void tell(platform::Platform& platform, const std::string& text) {
    platform.dialogs.message(Title, text, platform::Icon::Critical);
}

} // namespace

std::string reasonOf(const std::error_code& error) {
    const auto* const found = std::find_if(
        Reasons.begin(), Reasons.end(), [&](const Reason& row) { return error == row.code; });
    if (found != Reasons.end())
        return std::string(found->text);
    return "Unerwarteter Fehler Nr. " + std::to_string(error.value()) + ".";
}

void tellReadError(
    platform::Platform& platform, const platform::FileName& name, const std::error_code& error) {
    tell(platform,
        "Die Datei „" + name + "“ kann nicht gelesen werden.\n" + reasonOf(error)
            + "\nDie Permanenz ist unverändert.");
}

void tellWriteError(
    platform::Platform& platform, const platform::FileName& name, const std::error_code& error) {
    tell(platform,
        "Die Datei „" + name + "“ kann nicht gespeichert werden.\n" + reasonOf(error)
            + "\nEine schon vorhandene Datei ist unverändert.");
}

void tellOutOfMemory(platform::Platform& platform) {
    tell(platform,
        "Der Arbeitsspeicher reicht nicht aus.\n"
        "Die bis hierher erfassten Coups bleiben erhalten.");
}

void tellCountTooLarge(platform::Platform& platform) {
    tell(platform,
        "Diese Anzahl ist zu groß; höchstens 2.147.483.647 Coups auf einmal.\n"
        "Es wurde kein Coup gezogen.");
}

} // namespace files
