// SPDX-License-Identifier: MIT
// Stretches a picture in the screen's own pixels.
#include "window/controls/picture_box.h"

#include "forms/plan.h"
#include "look/device_edges.h"
#include "look/style.h"
#include "look/text.h"

#include <QPainter>

namespace window {

PictureBox::PictureBox(look::Picture picture, const forms::plan::Control& control,
    const QString& name, QWidget* parent)
    : QLabel(parent), picture_(picture) {
    look::applyRow(control, *this);
    // Only a label that has a picture is announced as one.
    setPixmap(QPixmap::fromImage(look::loadPicture(picture, 1)));
    setAccessibleName(name);
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const look::DeviceEdges edges(painter);
    const QSize wanted(edges.x(width()), edges.y(height()));
    if (stretched_.size() != wanted)
        stretched_ = QPixmap::fromImage(
            look::loadPicture(picture_, edges.scale())
                .scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    edges.adoptBy(painter);
    painter.drawPixmap(0, 0, stretched_);
}

} // namespace window
