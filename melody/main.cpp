// SPDX-License-Identifier: MIT
// Command line tool of the build: writes the piece as a MIDI file.

#include "midi.h"
#include "piece.h"
#include "score.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

namespace {

/// Writes all bytes or leaves no file behind: a cut one would pass for a finished build product.
bool writeFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) {
        return false;
    }
    file.write(
        reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close(); // the rest of the buffer goes out only here
    if (!file) {
        if (std::error_code ignored; std::filesystem::is_regular_file(path, ignored)) {
            std::filesystem::remove(path, ignored); // but never a device or a pipe
        }
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::cerr << "Aufruf: melodie AUSGABEDATEI\n";
        return 2;
    }
    try {
        if (!writeFile(argv[1], melody::midiFile(melody::parse(melody::pieceText())))) {
            std::cerr << "melodie: " << argv[1] << " kann nicht geschrieben werden\n";
            return 1;
        }
    } catch (const std::exception& error) {
        std::cerr << "melodie: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
