// SPDX-License-Identifier: MIT
// A whole piece as absolute notes and tempi, and the reader of its text form.
#pragma once

#include "notation.h"

#include <string>
#include <string_view>
#include <vector>

namespace melody {

/// A sounding note; times in ticks from the start of the piece, length as it is to be heard.
struct Note {
    int start = 0;
    int length = 0;
    int key = 0;
    int velocity = 0;
};

/// One instrument: settings as General MIDI counts them (channel 1..16, program 1..128).
struct Voice {
    std::string name;
    int channel = 1;
    int program = 1;
    int volume = 100;
    int pan = 64;
    int reverb = 40;
    int gate = 90; ///< heard part of a note value in percent
    int level = 0; ///< added to the velocity of every note
    std::vector<Note> notes;
};

/// Tempo from `tick` on, in quarters per minute.
struct Tempo {
    int tick = 0;
    double quartersPerMinute = 0;
};

/// Start of a named section.
struct Marker {
    int tick = 0;
    std::string name;
};

/// A piece ready to be written.
struct Score {
    std::string title;
    int quartersPerBar = 0;
    int bars = 0;
    std::vector<Tempo> tempi;
    std::vector<Marker> markers;
    std::vector<Voice> voices;

    /// Ticks of one bar.
    int barTicks() const { return quartersPerBar * ticksPerQuarter; }
};

/// Reads the text form, line by line (";" starts a comment line):
///   title TEXT | meter QUARTERS | chord NAME NOTE... | section NAME
///   voice NAME channel=N program=N volume=N pan=N reverb=N gate=N level=N
///   tempo N          from the following bar on
///   tempo N over B   change evenly to N within the following B bars
///   LOUDNESS | BAR OF VOICE 1 | BAR OF VOICE 2 ...
/// A bar line has one cell per voice (see parseBar; "%" repeats the bar before). Its loudness is a
/// velocity reached at its start; between two given ones it changes evenly, an empty cell gives
/// none.
/// Throws ScoreError naming line, bar and voice for every mistake.
Score parse(std::string_view text);

} // namespace melody
