// SPDX-License-Identifier: MIT
// The melody of the info dialog.
#include "info/sound.h"

#include <algorithm>
#include <array>

namespace Sound {

namespace {

struct Device {
    std::string_view extension;
    std::string_view type;
    bool video;
};

constexpr std::array Devices{
    Device{"mid", "Sequencer", false},
    Device{"midi", "Sequencer", false},
    Device{"rmi", "Sequencer", false},
    Device{"wav", "waveaudio", false},
    Device{"cda", "CDAudio", false},
    Device{"aif", "MPEGVideo", false},
    Device{"aifc", "MPEGVideo", false},
    Device{"aiff", "MPEGVideo", false},
    Device{"au", "MPEGVideo", false},
    Device{"mp3", "MPEGVideo", false},
    Device{"snd", "MPEGVideo", false},
    Device{"wma", "MPEGVideo2", false},
    Device{"mpeg", "MPEGVideo", true},
    Device{"mpg", "MPEGVideo", true},
    Device{"m1v", "MPEGVideo", true},
    Device{"mp2", "MPEGVideo", true},
    Device{"mpa", "MPEGVideo", true},
    Device{"mpe", "MPEGVideo", true},
    Device{"avi", "AVIVideo", true},
    Device{"wmv", "MPEGVideo2", true},
};
constexpr std::string_view OtherExtension = "MPEGVideo";

} // namespace

std::string Sound_Geraetetyp(std::string_view Datei, bool& IstVideo) {
    IstVideo = false;
    Datei.remove_prefix(Datei.rfind('/') + 1); // a dot in a folder's name is none of the file's
    const std::size_t dot = Datei.rfind('.');
    if (dot == std::string_view::npos)
        return {};
    std::string extension(Datei.substr(dot + 1));
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    const auto* const found = std::find_if(Devices.begin(), Devices.end(),
        [&](const Device& device) { return device.extension == extension; });
    if (found == Devices.end())
        return std::string(OtherExtension);
    IstVideo = found->video;
    return std::string(found->type);
}

void Sound_Oeffnen(platform::Platform& platform, const platform::FileName& Datei,
    std::uint32_t /*Fenster: the one file played here is no video*/) {
    bool video = false;
    platform.media.open(Datei, Sound_Geraetetyp(Datei, video));
}

void Sound_Abspielen(platform::Platform& platform, std::int32_t Position) {
    platform.media.play(Position);
}

void Sound_Stoppen(platform::Platform& platform) {
    platform.media.stop();
}

} // namespace Sound
