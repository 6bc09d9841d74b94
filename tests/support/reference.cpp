// SPDX-License-Identifier: MIT
// The plain program to compare with.
#include "support/reference.h"

#include "grids/families.h"

#include <algorithm>
#include <tuple>

namespace support {

namespace {

const std::set<int> Red{1, 3, 5, 7, 9, 12, 14, 16, 18, 19, 21, 23, 25, 27, 30, 32, 34, 36};
constexpr unsigned RedColor = 255;
constexpr unsigned GreenColor = 255 * 256;
constexpr unsigned ClothColor = 192 * 256;
constexpr unsigned WhiteColor = 16777215;

/// The captions of the families, by which they also place their marks.
const std::vector<std::string> Told{"Cp/NR N Z R", "Cp/PI P Z I", "Cp/PsM Ps Z M", "Cp/K K1 K2 K3",
    "Cp/D D1 D2 D3", "Cp/TVS 1 2 3 4 5 6 # 7 8 9 10 11",
    "Cp/TVP 1 2 3 4 5 6 7 8 9 10 11 12 # 13 14"};

/// A family that isn't told of here, as the program has it.
const grids::Family* further(int family) {
    const auto index = static_cast<std::size_t>(family);
    return index < Told.size() ? nullptr : &grids::Families.at(index);
}

/// The captions of a family's columns, from index 1.
std::vector<std::string> heads(int family) {
    std::vector<std::string> all{""};
    if (const auto* other = further(family)) {
        all.emplace_back(other->serialCaption);
        for (const grids::Captions& some : other->captions)
            for (int i = 0; i <= some.last - some.first; ++i)
                all.push_back(some.firstNumber ? joined(some.text, *some.firstNumber + i)
                                               : joined(some.text));
        return all;
    }
    std::istringstream told(Told[static_cast<std::size_t>(family)]);
    for (std::string head; told >> head;)
        all.push_back(head);
    all[1].replace(2, 1, " / ");
    return all;
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
    const std::string colors = joined(text, " on ", ground);
    return joined(what, " ", index, ": ", colors, ", ", colors);
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
    const auto put = [&](std::size_t column, const std::string& code) {
        row[column] = asCodes ? code : std::to_string(n);
    };
    if (const auto* other = further(family)) {
        for (const grids::Rule& rule : other->rules)
            for (int column = rule.first; column <= rule.last; ++column)
                if (codes(n)[static_cast<std::size_t>(rule.tableColumn)] == rule.code)
                    put(static_cast<std::size_t>(column), std::string(rule.code));
        return row;
    }
    static const std::array<std::string, 7> numbered{"", "", "", "K", "D", "TVS", "TVP"};
    const std::string& chance = numbered[static_cast<std::size_t>(family)];
    const auto shown = heads(family);
    for (std::size_t j = 2; j < shown.size(); ++j) {
        const std::string index = shown[j].substr(family == 3 || family == 4 ? 1 : 0);
        if (n == 0 && family < 6) { // a zero belongs to none and is marked in all
            if (family >= 3 || index == "Z")
                put(j, "Z");
        } else if (index != "Z" && index != "#"
            && (family < 3 ? members(index, 0) : members(chance, std::stoi(index))).contains(n))
            put(j, index);
    }
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
    family = entry;
    const auto shown = heads(entry);
    std::copy(shown.begin() + 1, shown.end(), captions.begin() + 1);
    resort();
}

int Reference::width() const {
    if (const auto* other = further(family))
        return lines ? other->widthWithLines : other->width;
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
    std::vector<std::string> text{joined("Coup ", coups.size(), " Plein ", plein, " family ",
        family, " codes ", asCodes, " lines ", lines ? 3 : 0, " width ", width())};
    for (const auto& [chance, name, last] : {std::tuple("N", "Noir", 0), {"R", "Rouge", 0},
             {"P", "Pair", 0}, {"I", "Impair", 0}, {"Ps", "Passe", 0}, {"M", "Manque", 0},
             {"K", "K", 3}, {"D", "D", 3}, {"TVS", "TVS", 11}, {"TVP", "TVP", 14}})
        for (int i = std::min(last, 1); i <= last; ++i) {
            const auto set = members(chance, i);
            text.push_back(joined(" ", i > 0 ? joined(i, ".") : "", name, "= ",
                std::count_if(coups.begin(), coups.end(), [&](int n) { return set.contains(n); })));
        }
    text.push_back(
        joined("gefallene Pleins: ", std::set<int>(coups.begin(), coups.end()).size(), " / 37 "));
    for (int n = 0; n <= 36; ++n) {
        const auto count = std::count(coups.begin(), coups.end(), n);
        text.push_back(joined(count, " in ", count > 0 ? WhiteColor : 0x80000011));
        const unsigned own = numberColor(n);
        const bool last = !coups.empty() && plein == n;
        const bool marked = (!box[1].empty() && count == std::stoi(box[1]))
            || (!box[2].empty() && count >= std::stoi(box[2]));
        text.push_back(cell("pad", n, last ? WhiteColor : own, last ? own : ClothColor));
        text.push_back(cell("tableau", n, marked ? WhiteColor : own, marked ? own : ClothColor));
    }
    for (std::size_t i : {1U, 2U})
        text.push_back(joined("box '", box[i], "' ", back[i], " ", fore[i]));
    for (std::size_t j = 1; j <= 16; ++j)
        text.push_back(joined("column '", captions[j], "' ", j == 1 ? "800 0" : "300 2"));
    for (const Row& row : view)
        text.push_back(line(row, 16));
    for (const Row& row : store)
        text.push_back(line(row, 10));
    return text;
}

} // namespace support
