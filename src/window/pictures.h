// SPDX-License-Identifier: MIT
// The program's own pictures.
#pragma once

#include "forms/plan.h"

#include <QIcon>
#include <QImage>
#include <QLabel>

namespace window {

enum class Picture { Icon, Banner };

/// The picture for a screen of the given factor: twice as fine where that is above 1.
QImage loadPicture(Picture picture, qreal factor);

/// A picture stretched to its control's place, with a name for screen readers.
QLabel* makePicture(
    Picture picture, const forms::plan::Control& control, const QString& name, QWidget* parent);

/// The program's icon in all its sizes.
QIcon programIcon();

} // namespace window
