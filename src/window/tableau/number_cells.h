// SPDX-License-Identifier: MIT
// What pad and tableau share: numbers drawn so that they can be read on any of their grounds, and
// how a screen reader describes a number's cell.
#pragma once

#include "forms/program.h"
#include "look/style.h"
#include "look/text.h"

#include <QStaticText>
#include <QString>

class QPainter;

namespace window {

/// How strongly two opaque colours stand out from each other, 1 (equal) to 21.
double contrast(const QColor& one, const QColor& other);

/// Digits laid out once, to be drawn again and again.
struct Digits {
    QFont font;
    QStaticText text;
    int width = 0;
    int height = 0; ///< of the digits alone
    int ascent = 0; ///< of the font's line, from its top to the baseline
};
Digits layOut(const look::Fit& fit);

/// Draws digits into `rect`, placed by the height of the digits themselves rather than by the
/// font's lines. Where `fore` hardly stands out from `back`, the digits get a thin edge; their own
/// colour stays.
void drawDigits(QPainter& painter, const QRect& rect, Qt::Alignment alignment, const Digits& digits,
    const QColor& fore, const QColor& back);

/// What a cell of `number` shows beside the number, in words: its chances, how often it fell,
/// whether it stands out.
QString describe(const forms::Program& program, int number);

} // namespace window
