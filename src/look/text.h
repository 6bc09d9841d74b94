// SPDX-License-Identifier: MIT
// Texts: the core's as the toolkit's, the controls' names, and making a text fit its place.
#pragma once

#include "forms/plan.h"

#include <QFont>
#include <QString>

#include <string_view>

class QPainter;
class QRect;

namespace look {

/// The name of a control as an object name. Members of an array carry their index ("xpButton(3)"),
/// the others stand alone ("cmdOK").
QString controlName(forms::plan::Name name, int index = 0);

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
