// SPDX-License-Identifier: MIT
// A second, plain program to compare with: eager, slow, every cell a text of its own. It shares no
// table with the real one; what a number belongs to is told by arithmetic and typed sets.
#pragma once

#include <array>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace support {

/// Everything, one after the other, as a text.
template <class... Parts>
std::string joined(const Parts&... parts) {
    std::ostringstream all;
    (all << ... << parts);
    return all.str();
}

/// A grid row, cells 1 to 16 (or fewer).
struct Row {
    std::array<std::string, 17> text;
    std::array<std::optional<unsigned>, 17> color;
    std::optional<unsigned> rowColor;
};

/// A row as one line of text.
std::string line(const Row& row, int columns);

/// The chance codes of a number, columns 1 to 11 of the table of chances.
std::array<std::string, 12> codes(int number);

/// What a family writes for a number, by column of the view.
std::array<std::string, 17> marks(int family, bool asCodes, int number);

/// The numbers of a counted chance: N, R, P, I, Ps, M, or K, D, TVS, TVP with an index.
std::set<int> members(const std::string& chance, int index);

/// The colour of a number itself: zero, red or black.
unsigned numberColor(int number);

struct Reference {
    std::vector<int> coups;
    int plein = 37;
    int family = 0;
    bool asCodes = false;
    bool lines = false;
    std::array<std::string, 3> box{}; ///< texts; 1 "genau", 2 "mind."
    std::array<unsigned, 3> back{0x80000005, 0x80000005, 0x80000005};
    std::array<unsigned, 3> fore{0x80000008, 0x80000008, 0x80000008};
    std::array<std::string, 17> captions;
    std::vector<Row> view;
    std::vector<Row> store;

    Reference() { choose(0); }
    void coup(int number);
    void undo();
    void reset();
    void choose(int entry);
    void toggleCodes();
    void toggleLines();
    void mark(int which, int value);
    void clearMark(int which);
    /// Writes the marks of row `row` without clearing what stands there.
    void place(std::size_t row);
    std::vector<std::string> picture() const;

private:
    int width() const;
    void resort();
};

} // namespace support
