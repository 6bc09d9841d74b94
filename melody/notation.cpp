// SPDX-License-Identifier: MIT
// Reads the notation of a single bar of a single voice.

#include "notation.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace melody {

namespace {

std::string quoted(std::string_view text) {
    return "„" + std::string(text) + "“";
}

/// Offset of a note letter above c, or -1.
int stepOf(char letter) {
    switch (letter) {
    case 'c':
        return 0;
    case 'd':
        return 2;
    case 'e':
        return 4;
    case 'f':
        return 5;
    case 'g':
        return 7;
    case 'a':
        return 9;
    case 'b':
        return 11;
    default:
        return -1;
    }
}

std::vector<int> keysOf(std::string_view sound, const ChordTable& chords) {
    if (sound == "r") {
        return {};
    }
    if (!sound.empty() && sound.front() >= 'A' && sound.front() <= 'Z') {
        const auto chord = chords.find(sound);
        if (chord == chords.end()) {
            throw ScoreError("unbekannter Akkord " + quoted(sound));
        }
        return chord->second;
    }
    std::vector<int> keys;
    for (std::size_t begin = 0; begin <= sound.size();) {
        const std::size_t end = std::min(sound.find('+', begin), sound.size());
        keys.push_back(keyOf(sound.substr(begin, end - begin)));
        begin = end + 1;
    }
    return keys;
}

/// Takes the marks off the end of the word and stores them in the note.
std::string_view takeMarks(std::string_view word, BarNote& note) {
    for (; !word.empty(); word.remove_suffix(1)) {
        switch (word.back()) {
        case '\'':
            note.staccato = true;
            break;
        case '>':
            note.accent = true;
            break;
        case '~':
            note.tied = true;
            break;
        default:
            return word;
        }
    }
    return word;
}

std::string quarters(int ticks) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", static_cast<double>(ticks) / ticksPerQuarter);
    return text;
}

void checkBarLength(int ticks, int barTicks) {
    if (ticks != barTicks) {
        throw ScoreError(std::string("Takt ist zu ") + (ticks < barTicks ? "kurz" : "lang") + ": "
            + quarters(ticks) + " statt " + quarters(barTicks) + " Viertel");
    }
}

} // namespace

int numberOf(std::string_view text, int lowest, int highest, std::string_view what) {
    std::string_view digits = text;
    if (digits.starts_with('+')) { // from_chars does not know the plus sign
        digits.remove_prefix(1);
        if (digits.starts_with('-')) {
            digits = {};
        }
    }
    int number = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || number < lowest || number > highest) {
        throw ScoreError(std::string(what) + " " + quoted(text) + " ist keine Zahl von "
            + std::to_string(lowest) + " bis " + std::to_string(highest));
    }
    return number;
}

std::vector<std::string_view> wordsOf(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    std::vector<std::string_view> words;
    std::size_t begin = text.find_first_not_of(blanks);
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(blanks, begin), text.size());
        words.push_back(text.substr(begin, end - begin));
        begin = text.find_first_not_of(blanks, end);
    }
    return words;
}

int keyOf(std::string_view name) {
    const int step = name.empty() ? -1 : stepOf(name.front());
    int shift = 0;
    std::size_t octaveAt = 1;
    if (name.size() > 1 && (name[1] == '#' || name[1] == 'b')) {
        shift = name[1] == '#' ? 1 : -1;
        octaveAt = 2;
    }
    // One digit only: nobody writes lower than c0 or higher than b9 on purpose.
    const bool hasOctave
        = name.size() == octaveAt + 1 && name[octaveAt] >= '0' && name[octaveAt] <= '9';
    if (step < 0 || !hasOctave) {
        throw ScoreError("unbekannte Note " + quoted(name));
    }
    const int key = 12 * (name[octaveAt] - '0' + 1) + step + shift;
    if (key > 127) {
        throw ScoreError("Note " + quoted(name) + " ist zu hoch");
    }
    return key;
}

int ticksOf(std::string_view value) {
    std::string_view digits = value;
    const char mark = digits.empty() ? ' ' : digits.back();
    if (mark == '.' || mark == 't') {
        digits.remove_suffix(1);
    }
    for (const int part : {1, 2, 4, 8, 16, 32}) {
        if (digits == std::to_string(part)) {
            const int plain = 4 * ticksPerQuarter / part;
            return mark == '.' ? plain * 3 / 2 : mark == 't' ? plain * 2 / 3 : plain;
        }
    }
    throw ScoreError("unbekannter Notenwert " + quoted(value));
}

Bar parseBar(std::string_view text, const ChordTable& chords, int barTicks, int level) {
    Bar bar{{}, level};
    const std::vector<std::string_view> words = wordsOf(text);
    if (words.size() == 1 && words.front() == "-") {
        return bar;
    }
    int time = 0;
    int length = 0; // carried on; zero until the first note value of the bar
    for (const std::string_view word : words) {
        if (word.front() == '@') {
            bar.level = numberOf(word.substr(1), -127, 127, "Lautstärke");
            continue;
        }
        BarNote note;
        const std::string_view plain = takeMarks(word, note);
        const std::size_t slash = plain.find('/');
        if (slash != std::string_view::npos) {
            length = ticksOf(plain.substr(slash + 1));
        } else if (length == 0) {
            throw ScoreError("erste Note " + quoted(word) + " ohne Notenwert");
        }
        note.keys = keysOf(plain.substr(0, slash), chords);
        note.start = time;
        note.length = length;
        note.level = bar.level;
        time += length;
        if (!note.keys.empty()) {
            bar.notes.push_back(std::move(note));
        }
    }
    checkBarLength(time, barTicks);
    return bar;
}

} // namespace melody
