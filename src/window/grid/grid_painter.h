// SPDX-License-Identifier: MIT
// Draws a grid's header and visible rows from cached strips.
#pragma once

#include "look/device_edges.h"
#include "window/grid/grid_layout.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QRect>

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

class QPainter;

namespace window {

/// Draws on any paint device. Rows of one pattern look alike apart from their serial numbers, so a
/// row is one copied strip and one short text, however many cells it has. All edges lie on whole
/// pixels of the device, at whatever scale the painter works.
class GridPainter {
public:
    explicit GridPainter(const QFont& font);

    /// Draws what lies within `clip` of the grid in `area` (its left and top at 0, 0): the header,
    /// the rows from `top` (counted from 0) on, and the empty ground below. Logical pixels.
    void paint(QPainter& painter, const QRect& area, const QRect& clip, const controls::Grid& grid,
        const GridLayout& layout, std::int64_t top);

private:
    static constexpr std::size_t MostDigits = 19; // of a 64 bit number

    /// How serial numbers of one length are drawn: long ones narrower, then smaller.
    struct SerialLook {
        QFont font;
        qreal digitWidth = 0; ///< 0 while unknown
    };

    void adopt(
        const controls::Grid& grid, const GridLayout& layout, const look::DeviceEdges& edges);
    void drawRows(
        QPainter& painter, const controls::Grid& grid, std::int64_t top, int from, int to);
    void drawGround(QPainter& painter, const QRect& area, int rowsEnd) const;
    /// A serial number from ready-made digits, at a height in device pixels.
    void drawSerial(QPainter& painter, std::int64_t row, int y);
    /// The serial numbers on a coloured ground, which ready-made digits don't suit.
    void drawOddSerials(QPainter& painter, std::int64_t top);
    const SerialLook& serialLook(qsizetype length);
    /// A part of a serial number on its ground.
    QImage digits(const QString& text, const SerialLook& look);
    const QImage& strip(const controls::RowPattern& pattern, controls::PatternId id, int height);
    QImage drawStrip(const controls::RowPattern& pattern, int height) const;
    QImage drawHeader() const;

    QFont font_;
    GridLayout layout_;
    look::DeviceEdges edges_;
    std::uint64_t generation_ = 0;
    QHash<quint64, QImage> strips_; // by pattern and height in device pixels
    QImage header_;
    std::array<SerialLook, MostDigits + 1> looks_; // by the number's length, made when needed
    QHash<std::pair<QString, qreal>, QImage> digits_; // parts of serial numbers, by digit width
    int pen_ = 1; // of lines, in device pixels
    std::vector<std::int64_t> odd_; // rows that drawOddSerials is to do
};

} // namespace window
