// SPDX-License-Identifier: MIT
// Converts, names and fits texts.
#include "look/text.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRect>

#include <algorithm>
#include <array>
#include <cassert>
#include <string_view>

namespace look {

namespace {

constexpr int Narrowest = 80; // percent
constexpr int Smallest = 8; // pixels
constexpr QChar Ellipsis(0x2026);

using forms::plan::Name;

struct Row {
    Name name;
    std::string_view text;
    bool array;
};

constexpr std::array Rows{
    Row{Name::Frm_Main, "Frm_Main", false},
    Row{Name::xpFrame, "xpFrame", true},
    Row{Name::Label, "Label", true},
    Row{Name::Label1, "Label1", false},
    Row{Name::Text, "Text", true},
    Row{Name::xpButton, "xpButton", true},
    Row{Name::Image1, "Image1", false},
    Row{Name::xpCombo, "xpCombo", true},
    Row{Name::Grid, "Grid", true},
    Row{Name::Check, "Check", true},
    Row{Name::Lbl_Status, "Lbl_Status", false},
    Row{Name::xpProgress, "xpProgress", false},
    Row{Name::picIcon, "picIcon", false},
    Row{Name::Picture2, "Picture2", false},
    Row{Name::lblTitle, "lblTitle", false},
    Row{Name::lblVersion, "lblVersion", false},
    Row{Name::cmdOK, "cmdOK", false},
    Row{Name::cmdSysInfo, "cmdSysInfo", false},
    Row{Name::lblDisclaimer, "lblDisclaimer", true},
};

int widthOf(const QFont& font, const QString& text) {
    return QFontMetrics(font).horizontalAdvance(text);
}

/// Narrows `font` as far as it is allowed and needed; returns whether the text fits then.
bool narrow(QFont& font, const QString& text, int width) {
    const int whole = widthOf(font, text);
    if (whole <= std::max(width, 0))
        return true;
    // Rounded glyph widths make the proportion a first guess only.
    for (int stretch = std::max(Narrowest, 100 * width / whole); stretch >= Narrowest; --stretch) {
        font.setStretch(stretch);
        if (widthOf(font, text) <= width)
            return true;
    }
    return false;
}

} // namespace

QString controlName(Name name, int index) {
    for (const Row& row : Rows)
        if (row.name == name)
            return row.array ? QStringLiteral("%1(%2)").arg(toText(row.text)).arg(index)
                             : toText(row.text);
    assert(false && "a name of the plan needs a row above");
    return {};
}

QString toText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

Fit fitted(const QFont& font, const QString& text, int width) {
    QFont attempt = font;
    if (narrow(attempt, text, width))
        return {attempt, text};
    for (int size = font.pixelSize() - 1; size >= Smallest; --size) {
        attempt.setPixelSize(size);
        if (widthOf(attempt, text) <= width)
            return {attempt, text};
    }
    return {attempt, QFontMetrics(attempt).elidedText(text, Qt::ElideRight, width)};
}

Fit refitted(const Fit& last, const QFont& font, const QString& text, int width) {
    const bool alike = text.size() == last.text.size() && !last.text.endsWith(Ellipsis);
    if (alike && widthOf(last.font, text) <= width)
        return {last.font, text};
    return fitted(font, text, width);
}

void drawFitted(
    QPainter& painter, const QRect& rect, int alignment, const QFont& font, const QString& text) {
    const Fit fit = fitted(font, text, rect.width());
    painter.setFont(fit.font);
    painter.drawText(rect, alignment | Qt::TextSingleLine, fit.text);
}

} // namespace look
