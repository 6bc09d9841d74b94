// SPDX-License-Identifier: MIT
// The full re-sort.
#include "grids/sortierung_neu.h"

#include "grids/sortierung_coup.h"
#include "progress/lauf.h"

#include <algorithm>
#include <limits>
#include <new>
#include <span>
#include <vector>

namespace M_Permanenz {

namespace {

using controls::PatternId;

/// What the re-sort made of a view row, for the last view row that was met with this store row.
struct Ergebnis {
    PatternId vorher = std::numeric_limits<PatternId>::max();
    PatternId nachher = 0;
};

/// Gives rows their new marks as long as the result is known; `numbers` tells the pattern of each
/// row's number, and `bekannt` is long enough for all of them. How many rows it did.
template <class Id, class Number>
std::size_t neueMarken(
    std::span<Id> ids, std::span<const Number> numbers, std::span<const Ergebnis> bekannt) {
    // Nearly all rows of a re-sort go this way; by fours they take a tenth less time.
    const std::size_t count = ids.size();
    std::size_t i = 0;
#pragma GCC unroll 4
    for (; i < count; ++i) {
        const Ergebnis& ergebnis = bekannt[numbers[i]];
        if (ergebnis.vorher != ids[i])
            break;
        ids[i] = static_cast<Id>(ergebnis.nachher);
    }
    return i;
}

/// Re-sorts rows one by one where it must, and by what it did before where it can.
class Umsortierung {
public:
    explicit Umsortierung(Programm& programm)
        : programm_(programm), sicht_(programm.Frm_Main.Grid[0]),
          speicher_(programm.Frm_Main.Grid[1]) { }

    /// Re-sorts the rows `von` up to `bis`, both included. A row whose new look memory can't hold
    /// keeps its old one, and the work goes on.
    void block(std::int64_t von, std::int64_t bis) {
        for (std::int64_t row = von; row <= bis;) {
            row = bekannteZeilen(row, bis);
            if (row <= bis)
                versuchen(row++);
        }
        programm_.Frm_Main.Coup = bis;
        programm_.Frm_Main.Plein = zahl(bis);
    }

private:
    int zahl(std::int64_t row) const { return std::stoi(speicher_.Row(row).Cell(2)); }

    /// Goes through rows from `row` on as long as each has a known result; gives the first that
    /// hasn't, or bis + 1.
    std::int64_t bekannteZeilen(std::int64_t row, std::int64_t bis) {
        if (bekannt_.empty())
            return row;
        return sicht_.Ids().visit([&](auto& view) {
            return speicher_.Ids().visit([&](const auto& store) {
                const auto ids = view.run(row - 1);
                const auto numbers = store.run(row - 1);
                const auto most = static_cast<std::size_t>(bis - row + 1);
                const std::size_t count = std::min({ids.size(), numbers.size(), most});
                const std::size_t i = neueMarken(ids.first(count), numbers.first(count), bekannt_);
                // At the end of a chunk the caller's single row leads over to the next one.
                return row + static_cast<std::int64_t>(i);
            });
        });
    }

    void versuchen(std::int64_t row) {
        try {
            neueZeile(row);
        } catch (const std::bad_alloc&) {
            vergessen();
        }
    }

    void vergessen() { bekannt_.clear(); }

    void neueZeile(std::int64_t row) {
        const PatternId vorher = sicht_.PatternOf(row);
        const PatternId speicher = speicher_.PatternOf(row);
        const std::uint64_t stand = sicht_.Generation();
        const forms::MainForm& form = programm_.Frm_Main;
        const PatternId nachher = sicht_.Intern(Mit_Marken(Ohne_Marken(sicht_.Pattern(vorher)),
            form.xpCombo[0].ListIndex, form.Check[0].Value != 0, zahl(row)));
        sicht_.SetPattern(row, nachher);
        if (sicht_.Generation() != stand)
            vergessen();
        bekannt_.resize(speicher_.PatternNumbers());
        bekannt_[speicher] = {vorher, nachher};
    }

    Programm& programm_;
    controls::Grid& sicht_;
    const controls::Grid& speicher_;
    /// By the pattern of the store row; empty, or long enough for all of them.
    std::vector<Ergebnis> bekannt_;
};

} // namespace

void Sortierung_Neu(Programm& programm, platform::Platform& platform) {
    controls::Grid& sicht = programm.Frm_Main.Grid[0];
    const std::int64_t n = programm.Frm_Main.Grid[1].RowCount();
    progress::Zeigen(programm, n, false);
    const std::int64_t m = sicht.RowCount();
    progress::Pace pace(platform);
    Umsortierung umsortierung(programm);
    for (std::int64_t i = 1; i <= m; i += progress::BlockSize) {
        const std::int64_t last = std::min(i + progress::BlockSize - 1, m);
        umsortierung.block(i, last);
        sicht.Refresh();
        progress::Melden(programm, last, n, last);
        pace.paint();
    }
    progress::Form_Unload(programm);
}

} // namespace M_Permanenz
