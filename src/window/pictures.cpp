// SPDX-License-Identifier: MIT
// Loads the pictures that are built into the program.
#include "window/pictures.h"

#include "window/control_names.h"
#include "window/style.h"

#include <QPixmap>

namespace window {

QImage loadPicture(Picture picture, qreal factor) {
    const QString name
        = picture == Picture::Icon ? QStringLiteral("icon") : QStringLiteral("banner");
    const QString fine = factor > 1 ? QStringLiteral("@2x") : QString();
    return QImage(QStringLiteral(":/pictures/%1%2.png").arg(name, fine));
}

QLabel* makePicture(
    Picture picture, const forms::plan::Control& control, const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(controlName(control.name, control.index));
    label->setGeometry(toPixels(control.place));
    label->setScaledContents(true);
    label->setPixmap(QPixmap::fromImage(loadPicture(picture, parent->devicePixelRatioF())));
    label->setAccessibleName(name);
    return label;
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addFile(
            QStringLiteral(":/icons/hicolor/%1x%1/apps/de.kestrelwood.Kestrelwood.png").arg(size));
    return icon;
}

} // namespace window
