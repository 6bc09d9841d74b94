// SPDX-License-Identifier: MIT
// From the plan's measures, fonts and colour values to the toolkit's; the program's fixed look.
#pragma once

#include "controls/color.h"
#include "controls/twips.h"
#include "forms/plan.h"

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

#include <string_view>

class QApplication;
class QPainter;

namespace look {

/// Sets style, palette, fonts and the German language, so that neither a dark desktop nor another
/// locale changes the program's looks or words.
void applyStyle(QApplication& application);

/// The colour of a value; system colours come from one fixed light palette.
QColor toColor(controls::Color color);

/// Hundredths of a point to pixels at 96 to the inch (825 gives 11).
QFont toFont(const forms::plan::Font& font);

/// The rectangle in logical pixels; edges are rounded, so that neighbours meet.
QRect toPixels(const controls::Rect& rect);

/// UTF-8 to the toolkit's text.
QString toText(std::string_view text);

/// How a text was made to fit its place.
struct Fit {
    QFont font; ///< as asked, narrower, or smaller
    QString text; ///< whole, or with an ellipsis where even that was not enough
};

/// Makes a text fit a width in pixels by the program's one rule: narrower down to 80 %, then
/// smaller down to 8 pixels, and only then cut with an ellipsis. Keep the result where the same
/// text is drawn again and again.
Fit fitted(const QFont& font, const QString& text, int width);

/// As fitted(), where `last` is the fit of the text that stood in the same place before: digits
/// that change keep their look, which saves most of the measuring.
Fit refitted(const Fit& last, const QFont& font, const QString& text, int width);

/// Draws a text fitted into `rect`.
void drawFitted(
    QPainter& painter, const QRect& rect, int alignment, const QFont& font, const QString& text);

} // namespace look
