// SPDX-License-Identifier: MIT
// The melody of the info dialog: which device plays a file, and the three commands to it.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Sound {

/// The device type for a file by the text after the last "." of its name, folders apart, whatever
/// the case; "MPEGVideo" for an unknown one, empty for a name without ".". `IstVideo` becomes
/// whether it is a video.
std::string Sound_Geraetetyp(std::string_view Datei, bool& IstVideo);

/// Opens a file (full path). Refused without a word while one is open. `Fenster`, the window for a
/// video, isn't used.
void Sound_Oeffnen(
    platform::Platform& platform, const platform::FileName& Datei, std::uint32_t Fenster);

/// Plays from `Position`, in milliseconds.
void Sound_Abspielen(platform::Platform& platform, std::int32_t Position);

void Sound_Stoppen(platform::Platform& platform);

} // namespace Sound
