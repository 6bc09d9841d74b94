// SPDX-License-Identifier: MIT
// Copies the picture's cells to where the water has taken them.
#include "window/forms/water_surface.h"

#include "look/style.h"
#include "look/text.h"

#include <QPainter>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cstring>

namespace window {

namespace {

constexpr std::chrono::milliseconds FrameTime{16};
constexpr int Border = 2; // pixels

constexpr int PictureSize = 148; // pixels
constexpr controls::Color PictureGround = controls::rgb(192, 192, 192);

/// The still picture with a cell of its ground beyond the right and the lower edge: the last cells
/// lie there, since the surface's size in cells is rounded up.
QImage stillPicture(qreal ratio, int fineness) {
    const int size = (PictureSize + Unterwassereffekt::CellSize) * fineness;
    QImage ground(size, size, QImage::Format_RGB32);
    ground.fill(look::toColor(PictureGround));
    QPainter painter(&ground);
    painter.drawImage(QRect(0, 0, PictureSize * fineness, PictureSize * fineness),
        look::loadPicture(look::Picture::Icon, ratio));
    return ground;
}

} // namespace

WaterSurface::WaterSurface(
    const Session& session, const forms::plan::Control& control, QWidget* parent)
    : QFrame(parent), session_(session), fineness_(devicePixelRatioF() > 1 ? 2 : 1),
      source_(stillPicture(devicePixelRatioF(), fineness_)) {
    setObjectName(look::controlName(control.name, control.index));
    setAccessibleName(QStringLiteral("Programmsymbol unter Wasser"));
    setFrameStyle(QFrame::WinPanel | QFrame::Sunken);
    setLineWidth(Border);
    setGeometry(look::toPixels(control.place));
    surface_ = QImage(contentsRect().size() * fineness_, QImage::Format_RGB32);
    surface_.fill(look::toColor(controls::ActiveTitle));
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(FrameTime);
    connect(&timer_, &QTimer::timeout, this, &WaterSurface::animate);
}

int WaterSurface::innerWidth() const {
    return contentsRect().width();
}

int WaterSurface::innerHeight() const {
    return contentsRect().height();
}

void WaterSurface::copyCell(int sourceX, int sourceY, int x, int y) {
    const int size = Unterwassereffekt::CellSize * fineness_;
    const QPoint from(sourceX * fineness_, sourceY * fineness_);
    const QPoint shift = QPoint(x, y) * fineness_ - from;
    const QRect block = QRect(from, QSize(size, size))
                            .intersected(source_.rect())
                            .intersected(surface_.rect().translated(-shift));
    if (block.isEmpty())
        return;
    const auto start = static_cast<std::size_t>(block.left());
    const int left = block.left() + shift.x();
    const auto target = static_cast<std::size_t>(left);
    const auto bytes = static_cast<std::size_t>(block.width()) * sizeof(QRgb);
    for (int row = block.top(); row <= block.bottom(); ++row)
        std::memcpy(reinterpret_cast<QRgb*>(surface_.scanLine(row + shift.y())) + target,
            reinterpret_cast<const QRgb*>(source_.constScanLine(row)) + start, bytes);
}

void WaterSurface::animate() {
    const QWindow* screenWindow = window()->windowHandle();
    if (!screenWindow || !screenWindow->isExposed())
        return;
    Unterwassereffekt::Wasser_Animieren(session_.program, session_.platform.clock, *this);
    update(contentsRect());
}

void WaterSurface::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(contentsRect(), surface_);
}

void WaterSurface::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    timer_.start();
}

void WaterSurface::hideEvent(QHideEvent* event) {
    timer_.stop();
    QFrame::hideEvent(event);
}

} // namespace window
