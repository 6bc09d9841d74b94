// SPDX-License-Identifier: MIT
// The melody of the info dialog.
#include "info/sound.h"

#include <algorithm>
#include <array>

namespace Sound {

namespace {

struct Geraet {
    std::string_view endung;
    std::string_view typ;
    bool video;
};

constexpr std::array Geraete{
    Geraet{"mid", "Sequencer", false},
    Geraet{"midi", "Sequencer", false},
    Geraet{"rmi", "Sequencer", false},
    Geraet{"wav", "waveaudio", false},
    Geraet{"cda", "CDAudio", false},
    Geraet{"aif", "MPEGVideo", false},
    Geraet{"aifc", "MPEGVideo", false},
    Geraet{"aiff", "MPEGVideo", false},
    Geraet{"au", "MPEGVideo", false},
    Geraet{"mp3", "MPEGVideo", false},
    Geraet{"snd", "MPEGVideo", false},
    Geraet{"wma", "MPEGVideo2", false},
    Geraet{"mpeg", "MPEGVideo", true},
    Geraet{"mpg", "MPEGVideo", true},
    Geraet{"m1v", "MPEGVideo", true},
    Geraet{"mp2", "MPEGVideo", true},
    Geraet{"mpa", "MPEGVideo", true},
    Geraet{"mpe", "MPEGVideo", true},
    Geraet{"avi", "AVIVideo", true},
    Geraet{"wmv", "MPEGVideo2", true},
};
constexpr std::string_view AndereEndung = "MPEGVideo";

} // namespace

std::string Sound_Geraetetyp(std::string_view Datei, bool& IstVideo) {
    IstVideo = false;
    Datei.remove_prefix(Datei.rfind('/') + 1); // a dot in a folder's name is none of the file's
    const std::size_t dot = Datei.rfind('.');
    if (dot == std::string_view::npos)
        return {};
    std::string endung(Datei.substr(dot + 1));
    for (char& c : endung)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    const auto* const found = std::find_if(Geraete.begin(), Geraete.end(),
        [&](const Geraet& geraet) { return geraet.endung == endung; });
    if (found == Geraete.end())
        return std::string(AndereEndung);
    IstVideo = found->video;
    return std::string(found->typ);
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
