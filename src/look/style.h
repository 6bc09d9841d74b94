// SPDX-License-Identifier: MIT
// From the plan's measures, fonts and colour values to the toolkit's; the program's fixed look and
// its pictures.
#pragma once

#include "controls/color.h"
#include "controls/twips.h"
#include "forms/plan.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QImage>
#include <QRect>

class QApplication;
class QWidget;

namespace look {

/// Sets style, palette, fonts and the German language, so that neither a dark desktop nor another
/// locale changes the program's looks or words.
void applyStyle(QApplication& application);

/// Sets palette and fonts again, when the desktop has changed them.
void holdStyle();

/// The colour of a value; system colours come from one fixed light palette.
QColor toColor(controls::Color color);

/// Hundredths of a point to pixels at 96 to the inch (825 is 11).
QFont toFont(const forms::plan::Font& font);

/// Sets on a widget what its row in the plan says: object name, place, tool tip, spoken name.
void applyRow(const forms::plan::Control& row, QWidget& widget);

/// The rectangle in logical pixels; edges are rounded, so that neighbours meet.
QRect toPixels(const controls::Rect& rect);

enum class Picture { Icon, Banner };

/// The picture for a screen of the given factor: twice as fine where that is above 1.
QImage loadPicture(Picture picture, qreal factor);

/// The program's icon in all its sizes.
QIcon programIcon();

} // namespace look
