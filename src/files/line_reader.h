// SPDX-License-Identifier: MIT
// Reading the lines of a permanence file from blocks of bytes.
#pragma once

#include "controls/chunked.h"
#include "files/fast_line.h"

#include <cstdint>
#include <string_view>

namespace files {

/// Takes a file block by block and keeps the number of every valid line in one byte. Lines that
/// look like almost all lines do are read eight bytes at a time, the others character by
/// character.
///
/// A line ends at CR, CR LF or a lone LF; the last one needs no end. It is valid if it holds, apart
/// from blanks and tabs at either end, decimal digits alone and their value is 0 to 36. A byte
/// order mark (EF BB BF) at the start of the file is skipped.
class LineReader {
public:
    /// Reads the next bytes of the file. May throw std::bad_alloc.
    void read(std::string_view block);

    /// The file has ended. May throw std::bad_alloc.
    void finish();

    /// The numbers of the valid lines so far.
    const controls::Chunked<std::uint8_t>& numbers() const { return numbers_; }
    /// Frees the memory of numbers before `index`, which have been used.
    void release(std::int64_t index) { numbers_.release(index); }

private:
    enum class Place { Start, Number, After, Invalid };

    std::string_view withoutByteOrderMark(std::string_view block);
    std::string_view wholeLines(std::string_view block);
    void takeCharacter(char c);
    void endOfLine();

    controls::Chunked<std::uint8_t> numbers_;
    const LineKind* kind_ = LineKinds.data(); ///< of the last usual line; most go on like it
    Place place_ = Place::Start;
    unsigned value_ = 0;
    unsigned bom_ = 0; ///< bytes of the byte order mark met so far; 4 once it can't come any more
};

} // namespace files
