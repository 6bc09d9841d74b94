// SPDX-License-Identifier: MIT
// A whole piece as absolute notes and tempi, and the reader of its text form.

#include "score.h"

#include <algorithm>
#include <cmath>

namespace melody {

namespace {

constexpr int accentGain = 14;
constexpr int downbeatGain = 4; // keeps the waltz turning without marking every bar
constexpr int staccatoPercent = 45;

struct Loudness {
    int tick;
    int velocity;
};

/// A voice while it is read: its notes still without velocity and articulation.
struct Draft {
    Voice voice;
    std::vector<BarNote> notes; // starts counted from the beginning of the piece
    std::string previousBar;
    int level = 0;
};

class Parser {
public:
    Score read(std::string_view text);

private:
    void readLine(std::string_view line);
    void readVoice(const std::vector<std::string_view>& words);
    void readChord(const std::vector<std::string_view>& words);
    void readTempo(const std::vector<std::string_view>& words);
    void addTempo(Tempo tempo);
    void readBar(std::string_view line);
    void readCell(std::string_view cell, Draft& draft);
    static void addNote(BarNote note, Draft& draft);
    double loudnessAt(int tick) const;
    Note finished(const BarNote& note, int key, const Voice& voice) const;
    void finish();
    int now() const { return score_.bars * score_.barTicks(); }

    Score score_;
    ChordTable chords_;
    std::vector<Draft> drafts_;
    std::vector<Loudness> loudness_;
    std::string place_; // voice being read, for messages
};

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos) {
        return {};
    }
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(separator, begin), text.size());
        pieces.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return pieces;
}

void require(bool condition, const std::string& message) {
    if (!condition) {
        throw ScoreError(message);
    }
}

Score Parser::read(std::string_view text) {
    int lineNumber = 0;
    try {
        for (const std::string_view line : split(text, '\n')) {
            ++lineNumber;
            place_.clear();
            readLine(trimmed(line));
        }
        place_.clear();
        finish();
    } catch (const ScoreError& error) {
        const std::string voice = place_.empty() ? "" : ", " + place_;
        throw ScoreError("Zeile " + std::to_string(lineNumber) + " (Takt "
            + std::to_string(score_.bars + 1) + voice + "): " + error.what());
    }
    return std::move(score_);
}

void Parser::readLine(std::string_view line) {
    if (line.empty() || line.front() == ';') {
        return;
    }
    if (line.find('|') != std::string_view::npos) {
        readBar(line);
        return;
    }
    const std::vector<std::string_view> words = wordsOf(line);
    const std::string_view keyword = words.front();
    const std::string rest(trimmed(line.substr(keyword.size())));
    require(!rest.empty(), "„" + std::string(keyword) + "“ ohne Angabe");
    if (keyword == "title") {
        score_.title = rest;
    } else if (keyword == "meter") {
        require(score_.bars == 0, "Taktart nach dem ersten Takt");
        score_.quartersPerBar = numberOf(rest, 1, 16, "Taktart");
    } else if (keyword == "section") {
        score_.markers.push_back({now(), rest});
    } else if (keyword == "voice") {
        readVoice(words);
    } else if (keyword == "chord") {
        readChord(words);
    } else if (keyword == "tempo") {
        readTempo(words);
    } else {
        throw ScoreError("unbekannte Angabe „" + std::string(keyword) + "“");
    }
}

void Parser::readVoice(const std::vector<std::string_view>& words) {
    require(score_.bars == 0, "neue Stimme nach dem ersten Takt");
    Draft draft;
    Voice& voice = draft.voice;
    voice.name = words[1];
    struct Field {
        std::string_view name;
        int& value;
        int lowest;
        int highest;
    };
    const Field fields[] = {
        {"channel", voice.channel, 1, 16},
        {"program", voice.program, 1, 128},
        {"volume", voice.volume, 0, 127},
        {"pan", voice.pan, 0, 127},
        {"reverb", voice.reverb, 0, 127},
        {"gate", voice.gate, 1, 100},
        {"level", voice.level, -127, 127},
    };
    for (std::size_t i = 2; i < words.size(); ++i) {
        const std::size_t equals = words[i].find('=');
        const std::string_view name = words[i].substr(0, equals);
        const auto* const field = std::find_if(std::begin(fields), std::end(fields),
            [name](const Field& f) { return f.name == name; });
        require(equals != std::string_view::npos && field != std::end(fields),
            "unbekannte Angabe „" + std::string(words[i]) + "“");
        field->value = numberOf(words[i].substr(equals + 1), field->lowest, field->highest, name);
    }
    for (const Draft& other : drafts_) {
        require(other.voice.channel != voice.channel, "Kanal doppelt belegt");
    }
    drafts_.push_back(std::move(draft));
}

void Parser::readChord(const std::vector<std::string_view>& words) {
    const std::string name(words[1]);
    require(name.front() >= 'A' && name.front() <= 'Z', "Akkordname braucht Großbuchstaben");
    require(words.size() > 2, "Akkord „" + name + "“ ohne Noten");
    std::vector<int> keys;
    for (std::size_t i = 2; i < words.size(); ++i) {
        keys.push_back(keyOf(words[i]));
    }
    require(chords_.emplace(name, keys).second, "Akkord „" + name + "“ doppelt");
}

void Parser::readTempo(const std::vector<std::string_view>& words) {
    const double target = numberOf(words[1], 20, 400, "Tempo");
    if (words.size() == 2) {
        addTempo({now(), target});
        return;
    }
    require(words.size() == 4 && words[2] == "over", "Tempo erwartet: tempo ZAHL over TAKTE");
    require(!score_.tempi.empty(), "Tempoänderung ohne Anfangstempo");
    const double start = score_.tempi.back().quartersPerMinute;
    const int bars = numberOf(words[3], 1, 64, "Taktzahl");
    // A step per eighth is finer than the ear resolves in so short a change.
    constexpr int stepTicks = ticksPerQuarter / 2;
    const int from = now();
    const int steps = bars * score_.barTicks() / stepTicks;
    for (int i = 1; i <= steps; ++i) {
        addTempo({from + (i - 1) * stepTicks, start + (target - start) * i / steps});
    }
}

void Parser::addTempo(Tempo tempo) {
    require(score_.quartersPerBar > 0, "Taktart fehlt vor dem Tempo");
    if (!score_.tempi.empty() && score_.tempi.back().tick >= tempo.tick) {
        throw ScoreError("Tempo überschneidet sich mit der Tempoangabe davor");
    }
    score_.tempi.push_back(tempo);
}

void Parser::readBar(std::string_view line) {
    require(!score_.tempi.empty(), "Tempo fehlt vor dem ersten Takt");
    const std::vector<std::string_view> cells = split(line, '|');
    if (cells.size() != drafts_.size() + 1) {
        throw ScoreError("Takt hat " + std::to_string(cells.size() - 1) + " statt "
            + std::to_string(drafts_.size()) + " Stimmen");
    }
    const std::string_view loudness = trimmed(cells[0]);
    if (!loudness.empty()) {
        loudness_.push_back({now(), numberOf(loudness, 1, 127, "Lautstärke")});
    }
    require(!loudness_.empty(), "Lautstärke fehlt im ersten Takt");
    for (std::size_t i = 0; i < drafts_.size(); ++i) {
        place_ = drafts_[i].voice.name;
        readCell(trimmed(cells[i + 1]), drafts_[i]);
    }
    place_.clear();
    ++score_.bars;
}

void Parser::readCell(std::string_view cell, Draft& draft) {
    if (cell != "%") {
        draft.previousBar = cell;
    }
    Bar bar = parseBar(draft.previousBar, chords_, score_.barTicks(), draft.level);
    draft.level = bar.level;
    for (BarNote& note : bar.notes) {
        note.start += now();
        addNote(std::move(note), draft);
    }
}

/// Appends the note, or lengthens the one before if that is tied to it.
void Parser::addNote(BarNote note, Draft& draft) {
    if (draft.notes.empty() || !draft.notes.back().tied) {
        draft.notes.push_back(std::move(note));
        return;
    }
    BarNote& before = draft.notes.back();
    require(before.start + before.length == note.start && before.keys == note.keys,
        "Bindebogen führt nicht zur gleichen Note");
    before.length += note.length;
    before.tied = note.tied;
    before.staccato = note.staccato;
}

double Parser::loudnessAt(int tick) const {
    const auto next = std::find_if(loudness_.begin(), loudness_.end(),
        [tick](const Loudness& point) { return point.tick > tick; });
    const Loudness& before = *(next - 1); // the first bar always has a loudness
    if (next == loudness_.end()) {
        return before.velocity;
    }
    const double way = static_cast<double>(tick - before.tick) / (next->tick - before.tick);
    return before.velocity + way * (next->velocity - before.velocity);
}

Note Parser::finished(const BarNote& note, int key, const Voice& voice) const {
    const bool downbeat = note.start % score_.barTicks() == 0;
    const int gain = (note.accent ? accentGain : 0) + (downbeat ? downbeatGain : 0);
    const int loudness = static_cast<int>(std::lround(loudnessAt(note.start)));
    const int velocity = std::clamp(loudness + voice.level + note.level + gain, 1, 127);
    const int percent = note.staccato ? std::min(staccatoPercent, voice.gate) : voice.gate;
    return {note.start, std::max(1, note.length * percent / 100), key, velocity};
}

void Parser::finish() {
    require(score_.bars > 0, "das Stück hat keinen Takt");
    require(score_.tempi.back().tick <= now(), "Tempoänderung reicht über das Ende hinaus");
    for (Draft& draft : drafts_) {
        place_ = draft.voice.name;
        for (const BarNote& note : draft.notes) {
            require(!note.tied, "Bindebogen am Ende der Stimme");
            for (const int key : note.keys) {
                draft.voice.notes.push_back(finished(note, key, draft.voice));
            }
        }
        score_.voices.push_back(std::move(draft.voice));
    }
}

} // namespace

Score parse(std::string_view text) {
    return Parser().read(text);
}

} // namespace melody
