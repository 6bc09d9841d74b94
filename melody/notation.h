// SPDX-License-Identifier: MIT
// Reads the notation of a single bar of a single voice.
#pragma once

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace melody {

/// Time grid of scores and MIDI files; divisible by 2, 3 and 5, so that triplets come out exactly.
inline constexpr int ticksPerQuarter = 480;

/// A mistake in the score text; what() is a German sentence for the person who edits the score.
class ScoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Names that stand for several keys at once (or for one drum); they start with a capital letter.
using ChordTable = std::map<std::string, std::vector<int>, std::less<>>;

/// One sound, its times counted in ticks from the start of its bar.
struct BarNote {
    int start = 0;
    int length = 0;
    std::vector<int> keys;
    int level = 0;
    bool staccato = false;
    bool accent = false;
    bool tied = false;
};

/// The content of one bar and the level ("@") that stays in force after it.
struct Bar {
    std::vector<BarNote> notes;
    int level = 0;
};

/// MIDI key of a note name such as "c4" (60), "f#5" or "bb3".
/// Throws ScoreError for anything else and for keys outside 0..127.
int keyOf(std::string_view name);

/// Ticks of a note value: "4" quarter, "2." dotted half, "8t" eighth of a triplet.
/// Throws ScoreError for unknown values.
int ticksOf(std::string_view value);

/// Whole number with optional sign within the given limits; `what` names it in the ScoreError.
int numberOf(std::string_view text, int lowest, int highest, std::string_view what);

/// Splits at blanks, dropping empty pieces.
std::vector<std::string_view> wordsOf(std::string_view text);

/// Reads one bar, e.g. "g5/4. f#5/8 g5 a5": sound, slash, note value (kept until the next one),
/// then marks. Sounds: note, notes joined by "+", chord name, "r" (rest). Marks: ' staccato,
/// > accent, ~ tie to the following note. "@-12" shifts the loudness from there on (`level` is the
/// shift at the start), "-" alone is a bar of rest.
/// Throws ScoreError if the bar does not last exactly `barTicks` or contains anything unknown.
Bar parseBar(std::string_view text, const ChordTable& chords, int barTicks, int level);

} // namespace melody
