// SPDX-License-Identifier: MIT
// Reading the lines of a permanence file from blocks of bytes.
#pragma once

#include "controls/chunked.h"

#include <cstdint>
#include <string_view>

namespace files {

/// Takes a file block by block and keeps the number of every valid line in one byte. Lines that
/// look like almost all lines do are read eight bytes at a time, the others letter by letter.
///
/// A line ends at CR, CR LF or a lone LF; the last one needs no end. It is valid if it holds, apart
/// from blanks and tabs at either end, decimal digits alone and their value is 0 to 36. A byte
/// order mark (EF BB BF) at the start of the file is passed over.
class Zeilenleser {
public:
    /// Reads the next bytes of the file. Throws std::bad_alloc.
    void lesen(std::string_view block);

    /// Tells that the file has ended. Throws std::bad_alloc.
    void ende();

    /// The numbers of the valid lines so far.
    controls::Chunked<std::uint8_t>& zahlen() { return zahlen_; }

private:
    enum class Stelle { Anfang, Zahl, Danach, Ungueltig };

    std::string_view ohneMarke(std::string_view block);
    std::string_view ganzeZeilen(std::string_view block);
    void zeichen(char c);
    void zeilenende();

    controls::Chunked<std::uint8_t> zahlen_;
    Stelle stelle_ = Stelle::Anfang;
    unsigned wert_ = 0;
    unsigned marke_ = 0; ///< bytes of the byte order mark met so far; 4 once it can't come any more
};

} // namespace files
