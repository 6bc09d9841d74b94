// SPDX-License-Identifier: MIT
// Draws a grid's header and visible rows from cached strips.
#pragma once

#include "window/grid_layout.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QRect>

#include <cstdint>
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

    /// How many strips are kept at the moment.
    qsizetype stripCount() const { return strips_.size(); }

private:
    void adopt(const controls::Grid& grid, const GridLayout& layout, qreal scale);
    void drawRows(
        QPainter& painter, const controls::Grid& grid, std::int64_t top, int from, int to);
    void drawGround(QPainter& painter, const QRect& area, int rowsEnd) const;
    /// A serial number from ready-made digits, at a height in device pixels.
    void drawSerial(QPainter& painter, std::int64_t row, int y);
    /// The serial numbers that don't suit ready-made digits: too wide, or on a coloured ground.
    void drawOddSerials(QPainter& painter, std::int64_t top);
    const QImage& digits(const QString& text);
    const QImage& strip(const controls::RowPattern& pattern, controls::PatternId id, int height);
    QImage drawStrip(const controls::RowPattern& pattern, int height) const;
    QImage drawHeader() const;
    std::int64_t firstNarrow() const;
    int device(int logical) const { return qRound(logical * scale_); }

    QFont font_;
    GridLayout layout_;
    qreal scale_ = 0;
    std::uint64_t generation_ = 0;
    QHash<quint64, QImage> strips_; // by pattern and height in device pixels
    QImage header_;
    QHash<QString, QImage> digits_; // parts of serial numbers
    int pen_ = 1; // of lines, in device pixels
    qreal digitWidth_ = 0;
    std::int64_t narrowFrom_ = 0; // the first number that is too wide for the plain font
    std::vector<std::int64_t> odd_; // rows that drawOddSerials is to do
    qsizetype oddLength_ = 0; // digits that oddFont_ was made for
    QFont oddFont_;
};

} // namespace window
