// SPDX-License-Identifier: MIT
// The plain program to compare with.
#include "support/reference.h"

#include "grids/families.h"

#include <algorithm>
#include <sstream>

namespace support {

namespace {

const std::set<int> Red{1, 3, 5, 7, 9, 12, 14, 16, 18, 19, 21, 23, 25, 27, 30, 32, 34, 36};
constexpr unsigned RedColor = 255;
constexpr unsigned GreenColor = 255 * 256;
constexpr unsigned ClothColor = 192 * 256;
constexpr unsigned WhiteColor = 16777215;

/// Families from this one on are none of those told here: they are as the program has them.
constexpr int Further = 7;

const grids::Family& further(int family) {
    return grids::Families.at(static_cast<std::size_t>(family));
}

bool inTvs(int t, int n) {
    const int first = t <= 6 ? 6 * t - 5 : 6 * (t - 7) + 4;
    return n >= first && n <= first + 5;
}

bool inTvp(int t, int n) {
    if (t == 13)
        return n <= 2;
    if (t == 14)
        return n == 0 || n == 2 || n == 3;
    return n >= 3 * t - 2 && n <= 3 * t;
}

std::string cell(const char* what, int index, unsigned text, unsigned ground) {
    const std::string colors = std::to_string(text) + " on " + std::to_string(ground);
    return std::string(what) + " " + std::to_string(index) + ": " + colors + ", " + colors;
}

} // namespace

std::string line(const Row& row, int columns) {
    const auto color = [](const auto& c) { return c ? std::to_string(*c) : std::string("-"); };
    std::string text = "row " + color(row.rowColor) + ":";
    for (std::size_t j = 1; j <= static_cast<std::size_t>(columns); ++j)
        if (!row.text[j].empty() || row.color[j])
            text += " " + std::to_string(j) + " '" + row.text[j] + "' " + color(row.color[j]);
    return text;
}

std::array<std::string, 12> codes(int n) {
    if (n == 0)
        return {"", "0", "Z", "Z", "Z", "Z", "Z", "Z", "Z", "Z", "13", "14"};
    std::array<std::string, 12> row{"", std::to_string(n), Red.contains(n) ? "R" : "N",
        n % 2 == 0 ? "P" : "I", n >= 19 ? "Ps" : "M", std::to_string((n - 1) % 3 + 1),
        std::to_string((n - 1) / 12 + 1)};
    for (int t = 1; t <= 11; ++t)
        if (inTvs(t, n))
            row[t <= 6 ? 7 : 8] = std::to_string(t);
    for (int t = 1; t <= 14; ++t)
        if (inTvp(t, n))
            row[t <= 12 ? 9 : t == 13 ? 10 : 11] = std::to_string(t);
    return row;
}

std::array<std::string, 17> marks(int family, bool asCodes, int n) {
    std::array<std::string, 17> row;
    const auto put = [&](int column, const std::string& code) {
        row[static_cast<std::size_t>(column)] = asCodes ? code : std::to_string(n);
    };
    if (family >= Further) {
        for (const grids::Rule& rule : further(family).rules)
            for (int column = rule.first; column <= rule.last; ++column)
                if (const auto code = codes(n)[static_cast<std::size_t>(rule.tableColumn)];
                    code == rule.code)
                    put(column, code);
    } else if (family <= 2 && n == 0)
        put(3, "Z");
    else if (family == 0)
        Red.contains(n) ? put(4, "R") : put(2, "N");
    else if (family == 1)
        n % 2 == 0 ? put(2, "P") : put(4, "I");
    else if (family == 2)
        n >= 19 ? put(2, "Ps") : put(4, "M");
    else if (family <= 5 && n == 0)
        for (int column = 2; column <= (family == 5 ? 13 : 4); ++column)
            put(column, "Z");
    else if (family <= 4) {
        const int value = family == 3 ? (n - 1) % 3 + 1 : (n - 1) / 12 + 1;
        put(value + 1, std::to_string(value));
    } else
        for (int t = 1; t <= (family == 5 ? 11 : 14); ++t)
            if (family == 5 ? inTvs(t, n) : inTvp(t, n))
                put(t + (t <= (family == 5 ? 6 : 12) ? 1 : 2), std::to_string(t));
    return row;
}

std::set<int> members(const std::string& chance, int index) {
    std::set<int> set;
    for (int n = 0; n <= 36; ++n)
        if (chance == "TVP"       ? inTvp(index, n)
                : n == 0          ? false
                : chance == "TVS" ? inTvs(index, n)
                : chance == "N"   ? !Red.contains(n)
                : chance == "R"   ? Red.contains(n)
                : chance == "P"   ? n % 2 == 0
                : chance == "I"   ? n % 2 == 1
                : chance == "Ps"  ? n > 18
                : chance == "M"   ? n < 19
                : chance == "K"   ? n % 3 == index % 3
                                  : n > 12 * (index - 1) && n <= 12 * index)
            set.insert(n);
    return set;
}

unsigned numberColor(int n) {
    return n == 0 ? GreenColor : Red.contains(n) ? RedColor : 0;
}

void Reference::coup(int n) {
    plein = n;
    coups.push_back(n);
    Row seen;
    Row kept;
    seen.text[1] = kept.text[1] = std::to_string(coups.size());
    const auto row = codes(n);
    kept.text[2] = row[1];
    for (std::size_t k = 3; k <= 10; ++k)
        kept.text[k] = row[k - 1];
    if (n == 0 || Red.contains(n)) {
        for (std::size_t k = 2; k <= 16; ++k)
            seen.color[k] = numberColor(n);
        kept.rowColor = numberColor(n);
    }
    view.push_back(seen);
    store.push_back(kept);
    place(coups.size());
}

void Reference::undo() {
    if (coups.empty())
        return;
    coups.pop_back();
    view.pop_back();
    store.pop_back();
    if (!coups.empty())
        plein = coups.back();
}

void Reference::reset() {
    coups.clear();
    view.clear();
    store.clear();
}

void Reference::place(std::size_t row) {
    const auto written = marks(family, asCodes, coups[row - 1]);
    for (std::size_t j = 2; j <= 16; ++j)
        if (!written[j].empty())
            view[row - 1].text[j] = written[j];
}

void Reference::resort() {
    for (std::size_t row = 1; row <= view.size(); ++row) {
        for (std::size_t j = 2; j <= 16; ++j)
            view[row - 1].text[j].clear();
        place(row);
    }
}

void Reference::choose(int entry) {
    static const std::array<const char*, Further> shown{"Cp/NR N Z R", "Cp/PI P Z I",
        "Cp/PsM Ps Z M", "Cp/K K1 K2 K3", "Cp/D D1 D2 D3", "Cp/TVS 1 2 3 4 5 6 # 7 8 9 10 11",
        "Cp/TVP 1 2 3 4 5 6 7 8 9 10 11 12 # 13 14"};
    family = entry;
    if (entry < Further) {
        std::istringstream texts(shown[static_cast<std::size_t>(entry)]);
        std::size_t column = 0;
        for (std::string text; texts >> text;)
            captions[++column] = text;
        captions[1].replace(2, 1, " / ");
    } else {
        captions[1] = further(entry).serialCaption;
        for (const grids::Captions& some : further(entry).captions)
            for (int column = some.first; column <= some.last; ++column)
                captions[static_cast<std::size_t>(column)] = std::string(some.text)
                    + (some.number != 0 ? std::to_string(some.number + column - some.first) : "");
    }
    resort();
}

int Reference::width() const {
    if (family >= Further)
        return lines ? further(family).widthWithLines : further(family).width;
    return family < 5 ? (lines ? 2075 : 2010)
        : family == 5 ? (lines ? 4910 : 4710)
                      : (lines ? 5870 : 5610);
}

void Reference::toggleCodes() {
    asCodes = !asCodes;
    resort();
}

void Reference::toggleLines() {
    lines = !lines;
}

void Reference::mark(int which, int value) {
    const auto i = static_cast<std::size_t>(which);
    box[i] = std::to_string(value);
    back[i] = 255 * 65536;
    fore[i] = WhiteColor;
}

void Reference::clearMark(int which) {
    box[static_cast<std::size_t>(which)].clear();
    back[static_cast<std::size_t>(which)] = WhiteColor;
}

std::vector<std::string> Reference::picture() const {
    std::vector<std::string> text{"Coup " + std::to_string(coups.size()) + " Plein "
        + std::to_string(plein) + " family " + std::to_string(family) + " codes "
        + std::to_string(asCodes) + " lines " + std::to_string(lines ? 3 : 0) + " width "
        + std::to_string(width())};
    const auto fallen = [&](int n) { return std::count(coups.begin(), coups.end(), n); };
    const auto counted = [&](const std::string& chance, const std::string& name, int index) {
        const auto set = members(chance, index);
        const auto count
            = std::count_if(coups.begin(), coups.end(), [&](int n) { return set.contains(n); });
        text.push_back(" " + (index > 0 ? std::to_string(index) + "." : "") + name + "= "
            + std::to_string(count));
    };
    counted("N", "Noir", 0);
    counted("R", "Rouge", 0);
    counted("P", "Pair", 0);
    counted("I", "Impair", 0);
    counted("Ps", "Passe", 0);
    counted("M", "Manque", 0);
    for (const auto& [chance, last] :
        std::array<std::pair<const char*, int>, 4>{{{"K", 3}, {"D", 3}, {"TVS", 11}, {"TVP", 14}}})
        for (int i = 1; i <= last; ++i)
            counted(chance, chance, i);
    text.push_back("gefallene Pleins: "
        + std::to_string(std::set<int>(coups.begin(), coups.end()).size()) + " / 37 ");
    for (int n = 0; n <= 36; ++n) {
        const auto count = fallen(n);
        text.push_back(
            std::to_string(count) + " in " + std::to_string(count > 0 ? WhiteColor : 0x80000011));
        const unsigned own = numberColor(n);
        const bool last = !coups.empty() && plein == n;
        const bool marked = (!box[1].empty() && count == std::stoi(box[1]))
            || (!box[2].empty() && count >= std::stoi(box[2]));
        text.push_back(cell("pad", n, last ? WhiteColor : own, last ? own : ClothColor));
        text.push_back(cell("tableau", n, marked ? WhiteColor : own, marked ? own : ClothColor));
    }
    for (std::size_t i : {1U, 2U})
        text.push_back(
            "box '" + box[i] + "' " + std::to_string(back[i]) + " " + std::to_string(fore[i]));
    for (std::size_t j = 1; j <= 16; ++j)
        text.push_back("column '" + captions[j] + "' " + (j == 1 ? "800 0" : "300 2"));
    for (const Row& row : view)
        text.push_back(line(row, 16));
    for (const Row& row : store)
        text.push_back(line(row, 10));
    return text;
}

} // namespace support
