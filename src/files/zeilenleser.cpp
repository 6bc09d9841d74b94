// SPDX-License-Identifier: MIT
// Reading the lines of a permanence file.
#include "files/zeilenleser.h"

namespace files {

namespace {

constexpr unsigned HighestNumber = 36;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr unsigned NoMarkAnyMore = 4;

} // namespace

void Zeilenleser::lesen(std::string_view block) {
    for (const char c : block) {
        if (marke_ < ByteOrderMark.size()) {
            if (c == ByteOrderMark[marke_]) {
                ++marke_;
                continue;
            }
            // The beginning of a mark that is none is text like any other, and not a number.
            if (marke_ > 0)
                stelle_ = Stelle::Ungueltig;
            marke_ = NoMarkAnyMore;
        }
        zeichen(c);
    }
}

void Zeilenleser::ende() {
    zeilenende();
}

void Zeilenleser::zeichen(char c) {
    if (c == '\r' || c == '\n') {
        zeilenende();
    } else if (c == ' ' || c == '\t') {
        if (stelle_ == Stelle::Zahl)
            stelle_ = Stelle::Danach;
    } else if (c >= '0' && c <= '9' && (stelle_ == Stelle::Anfang || stelle_ == Stelle::Zahl)) {
        stelle_ = Stelle::Zahl;
        wert_ = wert_ * 10 + static_cast<unsigned>(c - '0');
        if (wert_ > HighestNumber)
            stelle_ = Stelle::Ungueltig;
    } else {
        stelle_ = Stelle::Ungueltig;
    }
}

void Zeilenleser::zeilenende() {
    if (stelle_ == Stelle::Zahl || stelle_ == Stelle::Danach)
        zahlen_.push_back(static_cast<std::uint8_t>(wert_));
    stelle_ = Stelle::Anfang;
    wert_ = 0;
}

} // namespace files
