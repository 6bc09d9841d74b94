// SPDX-License-Identifier: MIT
// Writes a score as a standard MIDI file.
#pragma once

#include "score.h"

#include <cstdint>
#include <vector>

namespace melody {

/// The bytes of a format 1 file: a track with title, meter, tempi and sections, then one track per
/// voice. Expects a score as parse() returns it.
std::vector<std::uint8_t> midiFile(const Score& score);

} // namespace melody
