// SPDX-License-Identifier: MIT
// Where every control stands and how it looks at first, back to front unless stated otherwise.
#pragma once

#include "chances/chancentabelle.h"
#include "controls/color.h"
#include "controls/twips.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

namespace forms::plan {

using controls::Color;
using controls::Rect;
using controls::rgb;
using controls::Twips;

/// The controls by their names; an index distinguishes the members of an array.
enum class Name {
    Frm_Main,
    xpFrame,
    Label,
    Label1,
    Text,
    xpButton,
    Image1,
    xpLabel_Tableau,
    xpCombo,
    Grid,
    Check,
    XPLabel_Tableauzahl,
    XPLabel_Plein,
    XPLabel_N,
    XPLabel_R,
    XPLabel_P,
    XPLabel_I,
    XPLabel_Ps,
    XPLabel_M,
    XPLabel_K,
    XPLabel_D,
    XPLabel_TVS,
    XPLabel_TVP,
    Lbl_Status,
    xpProgress,
    picIcon,
    Picture2,
    lblTitle,
    lblVersion,
    cmdOK,
    cmdSysInfo,
    lblDisclaimer,
};

/// A font by its size in hundredths of a point (825 is 8.25).
struct Font {
    int size = 825;
    bool bold = false;
    bool underline = false;
};

/// A control that stands somewhere with a text.
struct Control {
    Name name{};
    int index = 0;
    Rect place{};
    std::string_view caption{};
    Font font{};
    Color foreColor = controls::Black;
    std::string_view toolTip{}; ///< also a screen reader's description of the control
    std::string_view
        spoken{}; ///< its name for a screen reader, where it shows none or not all of it
};

/// The row of a control in a form's table. A missing row is a bug: no build, or out_of_range at run
/// time.
template <class Rows>
constexpr const Control& rowOf(const Rows& rows, Name name, int index = 0) {
    for (const Control& row : rows)
        if (row.name == name && row.index == index)
            return row;
    throw std::out_of_range("no such control");
}

/// A label filled with two colours that run into each other.
struct GradientLabel {
    Name name{};
    int index = 0;
    Rect place{};
    Color from = 0;
    Color to = 0;
};

/// A cell of the pad or of the tableau, or its badge, by its number. Colours stand in M_Tableau and
/// M_Chancen.
struct NumberCell {
    int number = 0;
    Rect place{};
};

/// A rectangle behind the tableau's labels.
struct Shape {
    Rect place{};
    bool filled = false;
    Color fill = 0;
    int border = 0; ///< pixels
};

/// A straight line, black unless its owner says otherwise, from (x1, y1) to (x2, y2).
struct Line {
    Twips x1 = 0;
    Twips y1 = 0;
    Twips x2 = 0;
    Twips y2 = 0;
    int width = 0; ///< pixels
};

inline constexpr std::string_view MainCaption = "Kestrelwood Beta 0.1";
inline constexpr Rect MainClient{0, 0, 15240, 10710};

inline constexpr Font PanelFont{975, true, false};
inline constexpr Font HeadingFont{975, true, true};
inline constexpr Font UnderlinedFont{825, false, true};
inline constexpr Font PadFont{975, true, false};
inline constexpr Font TableauFont{1350, true, false};
inline constexpr Font BadgeFont{825, true, false};
inline constexpr Font GridFont{825, false, false};
inline constexpr Color PanelCaptionColor = rgb(0, 70, 213);
inline constexpr Color PanelBorderColor = rgb(191, 184, 191);
inline constexpr Color HoverBack = controls::Blue;
inline constexpr Color HoverFore = controls::White;

inline constexpr std::string_view PadTip = "klicken Sie auf die Gefallene Plein Zahl!";
inline constexpr std::string_view CountTip
    = "Geben Sie hier eine Zahl von 1-1000 ein und bestätigen Sie mit Enter!";

/// The three panels of the main window.
inline constexpr std::array Panels{
    Control{Name::xpFrame, 0, {0, 0, 1695, 10335}, "Eingabe", PanelFont, PanelCaptionColor},
    Control{Name::xpFrame, 1, {1680, 0, 6135, 10335}, "Permanenz / Sortierung", PanelFont,
        PanelCaptionColor},
    Control{Name::xpFrame, 3, {7800, 0, 7275, 10335}, "Tableau", PanelFont, PanelCaptionColor},
};

// Rows are in tab order; what lies in front comes later.

/// The panel "Eingabe".
inline constexpr std::array Eingabe{
    Control{Name::Image1, 0, {120, 8640, 1500, 1620}},
    Control{Name::Label1, 0, {240, 9600, 1455, 615}, "", {}, controls::HighlightText},
    Control{Name::Label, 5, {240, 480, 1215, 255}, "Manuel", HeadingFont},
    Control{Name::xpFrame, 2, {240, 720, 1155, 4215}, "xpFrame2", {}, 0, PadTip},
    Control{Name::Label, 6, {240, 5040, 1215, 255}, "Autom.", HeadingFont},
    Control{
        Name::Text, 0, {240, 5280, 1155, 345}, "", {}, controls::WindowText, CountTip, "Autom."},
    Control{Name::xpButton, 2, {240, 6120, 1215, 375}, "&Laden", {}, controls::Black,
        "Hängt die Coups einer Datei an die Permanenz an (Strg+O)."},
    Control{Name::xpButton, 0, {240, 6600, 1215, 375}, "&Rückgängig", {}, controls::Black,
        "Nimmt den letzten Coup zurück (Strg+Z)."},
    Control{Name::xpButton, 1, {240, 7080, 1215, 375}, "&Reset", {}, controls::Black,
        "Löscht die ganze Permanenz."},
    Control{Name::xpButton, 3, {240, 7560, 1215, 375}, "&Speichern", {}, controls::Black,
        "Schreibt die Permanenz in eine Datei (Strg+S)."},
};

/// The panel "Permanenz / Sortierung". The grid's width follows the selected family.
inline constexpr std::array Sortierung{
    Control{Name::xpCombo, 0, {120, 360, 2000, 315}, "", {}, controls::Black,
        "Chancen, nach denen die Permanenz sortiert ist.", "Sortierung"},
    Control{
        Name::Grid, 0, {120, 720, 1815, 9255}, "", {}, controls::Black, "", "Sortierte Permanenz"},
    Control{Name::Check, 0, {120, 9960, 1815, 255}, "einfache Sortierung", {}, controls::Black,
        "Zeigt die Kürzel der Chancen statt der Zahlen."},
    Control{Name::Check, 1, {1920, 9960, 975, 255}, "Gitter an", {}, controls::Black,
        "Zeigt Linien zwischen den Zeilen und Spalten."},
};

/// The panel "Tableau", apart from shapes, lines, cells and the labels of the chances.
inline constexpr std::array Tableau{
    Control{Name::Label, 4, {3240, 480, 1680, 195}},
    Control{Name::Label, 0, {1080, 9360, 1920, 195}, "Pleins Markieren die genau", UnderlinedFont},
    Control{Name::Text, 1, {3120, 9360, 795, 345}, "", {}, controls::WindowText, CountTip,
        "Pleins Markieren die genau … mal gefallen sind"},
    Control{Name::Label, 2, {3960, 9360, 1170, 195}, "mal gefallen sind", UnderlinedFont},
    Control{Name::xpButton, 4, {5280, 9360, 735, 255}, "Reset", {}, controls::Black,
        "Hebt die Markierung „genau“ auf."},
    Control{Name::Label, 1, {1080, 9720, 1845, 195}, "Pleins Markieren die mind.", UnderlinedFont},
    Control{Name::Text, 2, {3120, 9720, 795, 345}, "", {}, controls::WindowText, CountTip,
        "Pleins Markieren die mind. … mal gefallen sind"},
    Control{Name::Label, 3, {3960, 9720, 1170, 195}, "mal gefallen sind", UnderlinedFont},
    Control{Name::xpButton, 5, {5280, 9720, 735, 255}, "Reset", {}, controls::Black,
        "Hebt die Markierung „mind.“ auf."},
};

/// Shapes behind the tableau, front to back.
inline constexpr std::array Shapes{
    Shape{{1320, 3900, 5295, 2235}, false, 0, 8},
    Shape{{1320, 1680, 5295, 2235}, false, 0, 8},
    Shape{{3060, 1020, 1815, 7995}, true, controls::Black, 1},
    Shape{{1020, 840, 5895, 8355}, true, controls::Cloth, 3},
};

/// Lines between the shapes.
inline constexpr std::array Lines{
    Line{4860, 8940, 6600, 8340, 8},
    Line{1320, 6120, 1320, 8280, 8},
    Line{4800, 8340, 6540, 7800, 8},
    Line{6600, 6180, 6600, 8340, 8},
    Line{5400, 8160, 5400, 8700, 4},
    Line{6000, 7980, 6000, 8580, 4},
    Line{2520, 8100, 2520, 8700, 4},
    Line{1920, 7980, 1920, 8520, 4},
    Line{1320, 8280, 3060, 8940, 8},
    Line{1320, 7680, 3120, 8340, 8},
};

namespace detail {

inline constexpr Twips TableauTop = 1740;
inline constexpr int TableauRows = (chances::NumberCount - 1) / 3;

/// The top of the tableau's row 0 to 11: a wider gap parts the dozens.
constexpr Twips rowTop(int row) {
    return TableauTop + 540 * row + 60 * (row / 4);
}

consteval auto padCells() {
    std::array<NumberCell, chances::NumberCount> cells{};
    cells[0] = {0, {420, 120, 315, 375}};
    for (int n = 1; n < chances::NumberCount; ++n)
        cells[static_cast<std::size_t>(n)]
            = {n, {120 + 300 * ((n - 1) % 3), 480 + 300 * ((n - 1) / 3), 315, 315}};
    return cells;
}

consteval auto tableauCells() {
    std::array<NumberCell, chances::NumberCount> cells{};
    cells[0] = {0, {3180, 1140, 1575, 495}};
    for (int n = 1; n < chances::NumberCount; ++n)
        cells[static_cast<std::size_t>(n)]
            = {n, {3180 + 540 * ((n - 1) % 3), rowTop((n - 1) / 3), 495, 495}};
    return cells;
}

consteval auto badges() {
    auto cells = tableauCells();
    cells[0].place = {3720, 1140, 495, 495};
    return cells;
}

struct Gradient {
    Color from;
    Color to;
};
inline constexpr Gradient Simple{rgb(192, 255, 192), rgb(0, 255, 0)};
inline constexpr Gradient Yellow{rgb(255, 255, 192), rgb(255, 255, 0)};
inline constexpr Gradient Rose{rgb(255, 192, 192), rgb(255, 128, 128)};
inline constexpr Gradient Orange{rgb(255, 224, 192), rgb(255, 128, 0)};

constexpr GradientLabel label(Name name, int index, Rect place, Gradient colors) {
    return {name, index, place, colors.from, colors.to};
}

consteval auto counterLabels() {
    constexpr std::array edges{
        label(Name::XPLabel_Ps, 0, {480, 2580, 1275, 435}, Simple),
        label(Name::XPLabel_P, 0, {480, 4800, 1275, 435}, Simple),
        label(Name::XPLabel_N, 0, {480, 6840, 1275, 435}, Simple),
        label(Name::XPLabel_M, 0, {6180, 2580, 1275, 435}, Simple),
        label(Name::XPLabel_I, 0, {6180, 4800, 1275, 435}, Simple),
        label(Name::XPLabel_R, 0, {6180, 6780, 1275, 435}, Simple),
        label(Name::XPLabel_K, 1, {3180, 8400, 495, 495}, Yellow),
        label(Name::XPLabel_K, 2, {3720, 8400, 495, 495}, Yellow),
        label(Name::XPLabel_K, 3, {4260, 8400, 495, 495}, Yellow),
        label(Name::XPLabel_D, 1, {6060, 8040, 495, 495}, Yellow),
        label(Name::XPLabel_D, 2, {5460, 8220, 495, 495}, Yellow),
        label(Name::XPLabel_D, 3, {4860, 8400, 495, 495}, Yellow),
    };
    // A row and each border between two; the zero's two threes.
    std::array<GradientLabel, edges.size() + TableauRows + (TableauRows - 1) + 2> labels{};
    auto* next = std::copy(edges.begin(), edges.end(), labels.begin());
    for (int i = 1; i <= TableauRows; ++i)
        *next++ = label(Name::XPLabel_TVP, i, {1800, rowTop(i - 1), 1335, 495}, Rose);
    *next++ = label(Name::XPLabel_TVP, 13, {2350, 1200, 1335, 495}, Rose);
    *next++ = label(Name::XPLabel_TVP, 14, {4260, 1200, 1335, 495}, Rose);
    // On the border between two rows: 1 to 6 begin with the first row, 7 to 11 with the second.
    for (int i = 1; i < TableauRows; ++i) {
        const int lowerRow = i <= 6 ? 2 * i - 1 : 2 * (i - 6);
        *next++ = label(Name::XPLabel_TVS, i, {4800, rowTop(lowerRow) - 300, 1335, 495}, Orange);
    }
    return labels;
}

} // namespace detail

/// The number pad in its frame xpFrame(2).
inline constexpr auto PadCells = detail::padCells();
/// The number cells of the tableau.
inline constexpr auto TableauCells = detail::tableauCells();
/// The count badges in front of the number cells.
inline constexpr auto Badges = detail::badges();
/// The labels that show the counters of the chances. TVP 13 and 14 lie in front of the zero cell.
inline constexpr auto CounterLabels = detail::counterLabels();

/// The splash.
inline constexpr Rect StartClient{0, 0, 9960, 3915};
inline constexpr int StartInterval = 500; ///< milliseconds
inline constexpr std::array Start{
    Control{Name::Image1, 0, {0, 0, 9945, 3915}},
    Control{Name::Label1, 0, {600, 240, 7260, 1440}, "Kestrelwood", {1350, true, false},
        controls::HighlightText},
};

/// The progress dialog.
inline constexpr Rect ProgressClient{0, 0, 5085, 1065};
inline constexpr std::string_view ProgressCaption = "Berechne . . .";
inline constexpr std::array Progress{
    Control{Name::Lbl_Status, 0, {120, 240, 0, 0}},
    Control{Name::xpProgress, 0, {120, 600, 3615, 375}, "", {}, controls::Black, "", "Fortschritt"},
    Control{Name::xpButton, 0, {3840, 600, 1215, 375}, "&Abbrechen"},
};

/// The info dialog. The banner comes first because everything else lies over it.
inline constexpr Rect InfoClient{0, 0, 6375, 4290};
inline constexpr std::string_view InfoCaption = "Info";
inline constexpr std::array Info{
    Control{Name::Image1, 0, {120, 2400, 6225, 1875}},
    Control{Name::Picture2, 0, {120, 120, 2280, 2280}},
    Control{Name::picIcon, 0, {120, 120, 2280, 2265}},
    Control{Name::lblTitle, 0, {2520, 120, 3855, 660}, "Kestrelwood", {1350, true, false},
        controls::Blue},
    Control{Name::lblVersion, 0, {2520, 1080, 2775, 225}, "", {825, true, false}, controls::Blue},
    Control{Name::cmdOK, 0, {4800, 2625, 1467, 345}, "OK"},
    Control{Name::cmdSysInfo, 0, {4800, 3060, 1452, 345}, "&System-Info..."},
    Control{Name::lblDisclaimer, 1, {1920, 4080, 4470, 360},
        "Vergangene Coups sagen nichts über den nächsten."},
};
inline constexpr Line InfoDivider{120, 2400, 6300, 2400, 1};

} // namespace forms::plan
