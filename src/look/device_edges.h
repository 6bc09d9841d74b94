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
    int x(qreal logical) const {
        return static_cast<int>(std::floor(rest_.x() + logical * scale_ + 0.5));
    }
    int y(qreal logical) const {
        return static_cast<int>(std::floor(rest_.y() + logical * scale_ + 0.5));
    }

    /// Puts the painter into device pixels.
    void adoptBy(QPainter& painter) const {
        painter.scale(1 / scale_, 1 / scale_);
        painter.translate(-rest_);
    }

    /// Equal wherever all edges fall alike.
    friend bool operator==(const DeviceEdges&, const DeviceEdges&) = default;

private:
    explicit DeviceEdges(const QTransform& toDevice)
        : scale_(toDevice.m11()), rest_(rest(toDevice.dx()), rest(toDevice.dy())) { }

    /// From -0.5 on, less than 0.5.
    static qreal rest(qreal origin) { return origin - std::floor(origin + 0.5); }

    qreal scale_ = 0;
    QPointF rest_; // how far the origin lies from its pixel
};

} // namespace look
