// SPDX-License-Identifier: MIT
// Sizes and draws a plain label.
#include "window/fitted_label.h"

#include "window/control_names.h"
#include "window/style.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace window {

FittedLabel::FittedLabel(const forms::plan::Control& control, int room, QWidget* parent)
    : QLabel(parent), planned_(toPixels(control.place).size()), room_(room) {
    setObjectName(controlName(control.name, control.index));
    setTextFormat(Qt::PlainText);
    setFont(toFont(control.font));
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, toColor(control.foreColor));
    setPalette(colors);
    move(toPixels(control.place).topLeft());
    resize(planned_);
    showText(toText(control.caption));
}

void FittedLabel::showText(const QString& shown) {
    if (shown == text() && !shown.isEmpty())
        return;
    setText(shown);
    // A screen reader would call an empty label by its panel's caption.
    setVisible(!shown.isEmpty());
    const QFontMetrics metrics(font());
    const int wanted = std::max(planned_.width(), metrics.horizontalAdvance(shown));
    resize(std::min(wanted, std::max(room_, planned_.width())),
        std::max(planned_.height(), metrics.height()));
}

void FittedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    drawFitted(painter, rect(), Qt::AlignLeft | Qt::AlignTop, font(), text());
}

} // namespace window
