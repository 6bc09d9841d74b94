// SPDX-License-Identifier: MIT
// Loads the pictures that are built into the program.
#include "look/pictures.h"

namespace look {

QImage loadPicture(Picture picture, qreal factor) {
    const QString name
        = picture == Picture::Icon ? QStringLiteral("icon") : QStringLiteral("banner");
    const QString fine = factor > 1 ? QStringLiteral("@2x") : QString();
    return QImage(QStringLiteral(":/pictures/%1%2.png").arg(name, fine));
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addFile(
            QStringLiteral(":/icons/hicolor/%1x%1/apps/de.kestrelwood.kestrelwood.png").arg(size));
    return icon;
}

} // namespace look
