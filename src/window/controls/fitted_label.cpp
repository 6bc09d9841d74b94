// SPDX-License-Identifier: MIT
// Sizes and draws a plain label.
#include "window/controls/fitted_label.h"

#include "look/style.h"
#include "look/text.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace window {

FittedLabel::FittedLabel(const forms::plan::Control& control, int room, QWidget* parent)
    : QLabel(parent), planned_(look::toPixels(control.place).size()), room_(room) {
    setObjectName(look::controlName(control.name, control.index));
    setTextFormat(Qt::PlainText);
    setFont(look::toFont(control.font));
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, look::toColor(control.foreColor));
    setPalette(colors);
    move(look::toPixels(control.place).topLeft());
    resize(planned_);
    showText(look::toText(control.caption));
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
    look::drawFitted(painter, rect(), Qt::AlignLeft | Qt::AlignTop, font(), text());
}

} // namespace window
