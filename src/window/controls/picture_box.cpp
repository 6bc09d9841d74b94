// SPDX-License-Identifier: MIT
// Stretches a picture in the screen's own pixels.
#include "window/controls/picture_box.h"

#include "forms/plan.h"
#include "look/control_names.h"
#include "look/style.h"

#include <QPainter>

namespace window {

PictureBox::PictureBox(look::Picture picture, const forms::plan::Control& control,
    const QString& name, QWidget* parent)
    : QLabel(parent), picture_(picture) {
    setObjectName(look::controlName(control.name, control.index));
    setGeometry(look::toPixels(control.place));
    // Only a label that has a picture is told to screen readers as one.
    setPixmap(QPixmap::fromImage(look::loadPicture(picture, 1)));
    setAccessibleName(name);
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    const qreal factor = devicePixelRatioF();
    const QSize wanted = (QSizeF(size()) * factor).toSize();
    if (stretched_.size() != wanted) {
        stretched_ = QPixmap::fromImage(
            look::loadPicture(picture_, factor)
                .scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        stretched_.setDevicePixelRatio(factor);
    }
    QPainter(this).drawPixmap(0, 0, stretched_);
}

} // namespace window
