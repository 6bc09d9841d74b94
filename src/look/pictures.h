// SPDX-License-Identifier: MIT
// The program's own pictures.
#pragma once

#include <QIcon>
#include <QImage>

namespace look {

enum class Picture { Icon, Banner };

/// The picture for a screen of the given factor: twice as fine where that is above 1.
QImage loadPicture(Picture picture, qreal factor);

/// The program's icon in all its sizes.
QIcon programIcon();

} // namespace look
