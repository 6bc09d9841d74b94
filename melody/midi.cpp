// SPDX-License-Identifier: MIT
// Writes a score as a standard MIDI file.

#include "midi.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace melody {

namespace {

using Bytes = std::vector<std::uint8_t>;

// Kinds of meta events.
constexpr int metaTrackName = 0x03;
constexpr int metaMarker = 0x06;
constexpr int metaEndOfTrack = 0x2f;
constexpr int metaTempo = 0x51;
constexpr int metaMeter = 0x58;

// Controllers and channel messages.
constexpr int controlVolume = 7;
constexpr int controlPan = 10;
constexpr int controlReverb = 91;
constexpr int noteOff = 0x80;
constexpr int noteOn = 0x90;
constexpr int controlChange = 0xb0;
constexpr int programChange = 0xc0;

std::uint8_t byteOf(int value) {
    return static_cast<std::uint8_t>(value & 0xff);
}

void appendBigEndian(Bytes& out, std::size_t value, int byteCount) {
    for (int shift = 8 * (byteCount - 1); shift >= 0; shift -= 8) {
        out.push_back(static_cast<std::uint8_t>(value >> shift & 0xff));
    }
}

/// Seven bits per byte, all bytes but the last with the top bit set.
void appendVariableLength(Bytes& out, std::size_t value) {
    int shift = 0;
    while (value >> (shift + 7) != 0) {
        shift += 7;
    }
    for (; shift > 0; shift -= 7) {
        out.push_back(static_cast<std::uint8_t>((value >> shift & 0x7f) | 0x80));
    }
    out.push_back(static_cast<std::uint8_t>(value & 0x7f));
}

/// Collects the events of a track in any order and puts them out in order of time.
class Track {
public:
    void add(int tick, Bytes bytes, int rank = middle) {
        events_.push_back({tick, rank, std::move(bytes)});
    }

    void addMeta(int tick, int kind, std::string_view content, int rank = middle) {
        Bytes bytes{0xff, byteOf(kind)};
        appendVariableLength(bytes, content.size());
        bytes.insert(bytes.end(), content.begin(), content.end());
        add(tick, std::move(bytes), rank);
    }

    void addNote(int channel, const Note& note) {
        add(note.start, {byteOf(noteOn | channel), byteOf(note.key), byteOf(note.velocity)});
        // An end comes before a start at the same time, or a repeated key would be cut off.
        add(note.start + note.length, {byteOf(noteOff | channel), byteOf(note.key), 64}, first);
    }

    /// Appends the finished track, ending at `endTick`, to the file.
    void appendTo(Bytes& file, int endTick) {
        addMeta(endTick, metaEndOfTrack, "", last);
        std::stable_sort(events_.begin(), events_.end(), [](const Event& a, const Event& b) {
            return a.tick != b.tick ? a.tick < b.tick : a.rank < b.rank;
        });
        Bytes body;
        int now = 0;
        for (const Event& event : events_) {
            appendVariableLength(body, static_cast<std::size_t>(event.tick - now));
            body.insert(body.end(), event.bytes.begin(), event.bytes.end());
            now = event.tick;
        }
        file.insert(file.end(), {'M', 'T', 'r', 'k'});
        appendBigEndian(file, body.size(), 4);
        file.insert(file.end(), body.begin(), body.end());
    }

private:
    enum Rank { first, middle, last };

    struct Event {
        int tick;
        int rank;
        Bytes bytes;
    };

    std::vector<Event> events_;
};

Track conductorTrack(const Score& score) {
    Track track;
    track.addMeta(0, metaTrackName, score.title);
    // Beats, quarter as unit (2^2), clocks per metronome click, 32nds per quarter.
    const char meter[] = {static_cast<char>(score.quartersPerBar), 2, 24, 8};
    track.addMeta(0, metaMeter, {meter, sizeof meter});
    for (const Tempo& tempo : score.tempi) {
        const auto microseconds = std::lround(60'000'000.0 / tempo.quartersPerMinute);
        Bytes value;
        appendBigEndian(value, static_cast<std::size_t>(microseconds), 3);
        track.addMeta(tempo.tick, metaTempo, {reinterpret_cast<const char*>(value.data()), 3});
    }
    for (const Marker& marker : score.markers) {
        track.addMeta(marker.tick, metaMarker, marker.name);
    }
    return track;
}

Track voiceTrack(const Voice& voice) {
    const int channel = voice.channel - 1;
    const auto control = [channel](int controller, int value) {
        return Bytes{byteOf(controlChange | channel), byteOf(controller), byteOf(value)};
    };
    Track track;
    track.addMeta(0, metaTrackName, voice.name);
    track.add(0, {byteOf(programChange | channel), byteOf(voice.program - 1)});
    track.add(0, control(controlVolume, voice.volume));
    track.add(0, control(controlPan, voice.pan));
    track.add(0, control(controlReverb, voice.reverb));
    for (const Note& note : voice.notes) {
        track.addNote(channel, note);
    }
    return track;
}

} // namespace

Bytes midiFile(const Score& score) {
    const int endTick = score.bars * score.barTicks();
    Bytes file{'M', 'T', 'h', 'd'};
    appendBigEndian(file, 6, 4);
    appendBigEndian(file, 1, 2);
    appendBigEndian(file, score.voices.size() + 1, 2);
    appendBigEndian(file, ticksPerQuarter, 2);
    conductorTrack(score).appendTo(file, endTick);
    for (const Voice& voice : score.voices) {
        voiceTrack(voice).appendTo(file, endTick);
    }
    return file;
}

} // namespace melody
