// SPDX-License-Identifier: MIT
// Draws a panel's border and caption.
#include "window/controls/frame_panel.h"

#include "look/style.h"
#include "look/text.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace window {

namespace {

constexpr int CaptionLeft = 9; // from the panel's edge to the first letter
constexpr int CaptionGap = 3; // free space beside the caption
constexpr qreal Radius = 4;

/// The outermost line of a rectangle that lies on whole pixels of the screen, also where the
/// screen's factor or the panel's place is a fraction.
QRectF crispBorder(const QPainter& painter, const QRectF& rect, qreal lineWidth) {
    const QTransform toScreen = painter.deviceTransform();
    const QRectF exact = toScreen.mapRect(rect);
    const QPointF topLeft(std::round(exact.left()), std::round(exact.top()));
    const QPointF bottomRight(std::round(exact.right()), std::round(exact.bottom()));
    const qreal half = lineWidth / 2;
    return toScreen.inverted().mapRect(
        QRectF(topLeft, bottomRight).adjusted(half, half, -half, -half));
}

} // namespace

FramePanel::FramePanel(const forms::plan::Control& control, QWidget* parent)
    : QGroupBox(look::toText(control.caption), parent), captionFont_(look::toFont(control.font)),
      captionColor_(look::toColor(control.foreColor)) {
    look::applyRow(control, *this);
}

void FramePanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetrics metrics(captionFont_);
    const QRect caption(CaptionLeft, 0, metrics.horizontalAdvance(title()), metrics.height());

    const qreal lineWidth = std::max(1.0, std::floor(devicePixelRatioF())); // of the screen
    const int captionMiddle = caption.height() / 2;
    const QRectF border
        = crispBorder(painter, QRectF(rect().adjusted(0, captionMiddle, 0, 0)), lineWidth);
    QPainterPath outline;
    outline.addRoundedRect(border, Radius, Radius);
    QPen pen(look::toColor(forms::plan::PanelBorderColor), lineWidth);
    pen.setCosmetic(true);
    painter.setPen(pen);
    painter.save();
    const QRect gap = caption.adjusted(-CaptionGap, 0, CaptionGap, 0);
    painter.setClipRegion(QRegion(rect()) - gap);
    painter.drawPath(outline);
    painter.restore();

    painter.setFont(captionFont_);
    painter.setPen(captionColor_);
    painter.drawText(caption, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, title());
}

} // namespace window
