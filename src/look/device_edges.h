// SPDX-License-Identifier: MIT
// Where logical edges fall on the whole pixels of a device.
#pragma once

#include <QPainter>
#include <QTransform>

#include <cmath>

namespace look {

/// Every edge is rounded where it stands on the device, never a width or a height by itself. The
/// toolkit clips and fills in this way, so only then has each pixel between neighbours an owner.
/// Counts from the pixel that holds the painter's origin.
class DeviceEdges {
public:
    DeviceEdges() = default;
    explicit DeviceEdges(const QPainter& painter) : DeviceEdges(painter.deviceTransform()) { }

    qreal scale() const { return scale_; }
    int x(qreal logical) const { return rounded(rest_.x() + logical * scale_); }
    int y(qreal logical) const { return rounded(rest_.y() + logical * scale_); }

    /// Puts the painter into device pixels.
    void adoptBy(QPainter& painter) const {
        painter.scale(1 / scale_, 1 / scale_);
        painter.translate(-rest_);
    }

    /// Equal wherever all edges fall alike.
    friend bool operator==(const DeviceEdges&, const DeviceEdges&) = default;

private:
    explicit DeviceEdges(const QTransform& toDevice)
        : scale_(toDevice.m11()),
          rest_(toDevice.dx() - rounded(toDevice.dx()), toDevice.dy() - rounded(toDevice.dy())) { }

    static int rounded(qreal edge) { return static_cast<int>(std::floor(edge + 0.5)); }

    qreal scale_ = 0;
    QPointF rest_; // how far the origin lies from its pixel
};

} // namespace look
