// SPDX-License-Identifier: MIT
// Draws a grid's header and visible rows from cached strips.
#include "window/grid/grid_painter.h"

#include "look/style.h"
#include "look/text.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QtMath>

namespace window {

namespace {

constexpr int TextMargin = 3;
// Far above the patterns of one view, so that clearing all at once is rare and good enough.
constexpr qsizetype MaxStrips = 128;
constexpr qsizetype GroupLength = 3; // digits that a number is put together from
constexpr qsizetype MaxDigits = 2048; // all groups of three digits, and thousands to spare

constexpr QRgb Paper = 0xFFFFFFFF;
constexpr QRgb Ink = 0xFF000000;
constexpr QRgb Line = 0xFFB9B5B0;
constexpr QRgb SerialGround = 0xFFF1EFEA; // column 1 belongs to the header by its look
constexpr QRgb SerialEdge = 0xFFD5D1C8;
constexpr QRgb HeaderTop = 0xFFFBFAF8;
constexpr QRgb HeaderBottom = 0xFFE6E2DA;
constexpr QRgb HeaderEdge = 0xFFA9A499;

int alignmentOf(int code) {
    return static_cast<int>(code == 0 ? Qt::AlignLeft : Qt::AlignHCenter)
        | static_cast<int>(Qt::AlignVCenter);
}

/// The place of a text in a cell from `left` to `right`, clear of the line.
QRect textRect(const GridLayout::Column& column, int line, int height) {
    const int margin = column.alignment == 0 ? TextMargin : 0;
    return {column.left + margin, 0, column.right - line - column.left - 2 * margin, height};
}

} // namespace

GridPainter::GridPainter(const QFont& font) : font_(font) {
    font_.setKerning(false); // digits stand in columns, also "11"
}

void GridPainter::paint(QPainter& painter, const QRect& area, const QRect& clip,
    const controls::Grid& grid, const GridLayout& layout, std::int64_t top) {
    adopt(grid, layout, look::DeviceEdges(painter));

    const std::int64_t left = std::max<std::int64_t>(0, grid.RowCount() - top);
    const int rows
        = static_cast<int>(std::min<std::int64_t>(left, GridLayout::rowsIn(area.height())));
    const int from = std::max(0, (clip.top() - GridLayout::HeaderHeight) / GridLayout::RowHeight);
    const int to = std::min(
        rows, std::max(0, clip.bottom() - GridLayout::HeaderHeight) / GridLayout::RowHeight + 1);

    painter.save();
    edges_.adoptBy(painter); // copies are made in whole device pixels
    if (clip.top() < GridLayout::HeaderHeight)
        painter.drawImage(0, 0, header_);
    drawRows(painter, grid, top, from, to);
    drawGround(painter, area, GridLayout::HeaderHeight + rows * GridLayout::RowHeight);
    painter.restore();
    drawOddSerials(painter, top);
}

void GridPainter::drawRows(
    QPainter& painter, const controls::Grid& grid, std::int64_t top, int from, int to) {
    odd_.clear();
    for (int i = from; i < to; ++i) {
        const std::int64_t row = top + i + 1;
        const controls::PatternId id = grid.patternOf(row);
        const controls::RowPattern& pattern = grid.pattern(id);
        const int y = edges_.y(GridLayout::HeaderHeight + i * GridLayout::RowHeight);
        const int end = edges_.y(GridLayout::HeaderHeight + (i + 1) * GridLayout::RowHeight);
        painter.drawImage(0, y, strip(pattern, id, end - y));
        if (!pattern.serial() || layout_.columns.empty())
            continue;
        // Column 1 has its own ground only where nothing else was asked for.
        const bool bare = !pattern.CellColor(1) && !pattern.RowColor();
        if (bare)
            drawSerial(painter, row, y);
        else
            odd_.push_back(row);
    }
}

void GridPainter::adopt(
    const controls::Grid& grid, const GridLayout& layout, const look::DeviceEdges& edges) {
    if (layout != layout_ || edges != edges_) {
        layout_ = layout;
        edges_ = edges;
        pen_ = std::max(1, static_cast<int>(edges.scale()));
        strips_.clear();
        digits_.clear();
        looks_ = {};
        header_ = drawHeader();
    }
    if (grid.generation() != generation_) {
        generation_ = grid.generation();
        strips_.clear();
    }
}

const GridPainter::SerialLook& GridPainter::serialLook(qsizetype length) {
    // All digits are equally wide, so one number of this length stands for all of them. The
    // smallest font still holds a million million rows, more than any memory.
    SerialLook& look = looks_[static_cast<std::size_t>(length)];
    if (look.digitWidth == 0) {
        const int room = textRect(layout_.columns[0], layout_.lines, GridLayout::RowHeight).width();
        look.font = look::fitted(font_, QString(length, QLatin1Char('8')), room).font;
        look.digitWidth = QFontMetricsF(look.font).horizontalAdvance(QLatin1Char('0'));
    }
    return look;
}

void GridPainter::drawGround(QPainter& painter, const QRect& area, int rowsEnd) const {
    const int right = edges_.x(area.width());
    const int bottom = edges_.y(area.height());
    const int columnsEnd = edges_.x(layout_.width());
    const int y = edges_.y(rowsEnd);
    if (y < bottom)
        painter.fillRect(0, y, right, bottom - y, QColor(Paper));
    if (columnsEnd < right)
        painter.fillRect(columnsEnd, 0, right - columnsEnd, y, QColor(Paper));
}

void GridPainter::drawSerial(QPainter& painter, std::int64_t row, int y) {
    // Neighbouring rows share their thousands, so hardly a number has to be drawn again, and a
    // long one takes about as little time as a short one.
    const QString text = QString::number(row);
    const SerialLook& look = serialLook(text.size());
    const int left = layout_.columns[0].left + TextMargin;
    const qsizetype thousands = std::max<qsizetype>(0, text.size() - GroupLength);
    if (thousands > 0)
        painter.drawImage(edges_.x(left), y, digits(text.left(thousands), look));
    const qreal x = left + look.digitWidth * static_cast<qreal>(thousands);
    painter.drawImage(edges_.x(x), y, digits(text.mid(thousands), look));
}

void GridPainter::drawOddSerials(QPainter& painter, std::int64_t top) {
    painter.setPen(QColor(Ink));
    for (const std::int64_t row : odd_) {
        const QString text = QString::number(row);
        const QRect first = textRect(layout_.columns[0], layout_.lines, GridLayout::RowHeight);
        const int i = static_cast<int>(row - 1 - top);
        const int y = GridLayout::HeaderHeight + i * GridLayout::RowHeight;
        painter.setFont(serialLook(text.size()).font);
        painter.drawText(first.translated(0, y), alignmentOf(0), text);
    }
}

QImage GridPainter::digits(const QString& text, const SerialLook& look) {
    const std::pair<QString, qreal> key(text, look.digitWidth);
    if (const auto found = digits_.constFind(key); found != digits_.cend())
        return *found;
    const auto width = [&](qsizetype length) {
        return std::max(1, qCeil(look.digitWidth * static_cast<qreal>(length) * edges_.scale()));
    };
    const int height = static_cast<int>(GridLayout::RowHeight * edges_.scale()) - pen_;
    QImage image(width(text.size()), std::max(1, height), QImage::Format_RGB32);
    image.fill(SerialGround);
    if (text.size() > 1) {
        // Put together from shorter parts, down to single digits: drawing text takes far longer.
        const qsizetype before = text.size() - (text.size() > GroupLength ? GroupLength : 1);
        const qreal x = look.digitWidth * static_cast<qreal>(before) * edges_.scale();
        const std::array parts{digits(text.left(before), look), digits(text.mid(before), look)};
        QPainter painter(&image);
        painter.drawImage(0, 0, parts[0]);
        painter.drawImage(qRound(x), 0, parts[1]);
    } else {
        image.setDevicePixelRatio(edges_.scale());
        QPainter painter(&image);
        painter.setPen(QColor(Ink));
        painter.setFont(look.font);
        painter.drawText(QRect(0, 0, image.width(), GridLayout::RowHeight), alignmentOf(0), text);
        painter.end();
        image.setDevicePixelRatio(1);
    }
    if (digits_.size() >= MaxDigits)
        digits_.clear();
    digits_.insert(key, image);
    return image;
}

const QImage& GridPainter::strip(
    const controls::RowPattern& pattern, controls::PatternId id, int height) {
    const quint64 key = (static_cast<quint64>(id) << 16) | static_cast<quint64>(height);
    if (const auto found = strips_.constFind(key); found != strips_.cend())
        return *found;
    if (strips_.size() >= MaxStrips)
        strips_.clear();
    return *strips_.insert(key, drawStrip(pattern, height));
}

QImage GridPainter::drawStrip(const controls::RowPattern& pattern, int height) const {
    QImage image(std::max(1, edges_.x(layout_.width())), height, QImage::Format_RGB32);
    image.fill(Paper);
    QPainter painter(&image);
    const int line = layout_.lines ? 1 : 0;
    for (int j = 1; const auto& column : layout_.columns) {
        const int left = edges_.x(column.left);
        const int right = edges_.x(column.right);
        const auto color = pattern.CellColor(j) ? pattern.CellColor(j) : pattern.RowColor();
        const QRgb bare = j == 1 ? SerialGround : Paper;
        painter.fillRect(
            left, 0, right - left, height, color ? look::toColor(*color) : QColor(bare));
        if (line || j == 1)
            painter.fillRect(right - pen_, 0, pen_, height, QColor(line ? Line : SerialEdge));
        if (line)
            painter.fillRect(left, height - pen_, right - left, pen_, QColor(Line));
        ++j;
    }
    painter.end();

    image.setDevicePixelRatio(edges_.scale());
    painter.begin(&image);
    painter.setPen(QColor(Ink));
    for (int j = 1; const auto& column : layout_.columns) {
        if (const auto text = pattern.Cell(j); !text.empty())
            look::drawFitted(painter, textRect(column, line, GridLayout::RowHeight),
                alignmentOf(column.alignment), font_, look::toText(text));
        ++j;
    }
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

QImage GridPainter::drawHeader() const {
    const int height = edges_.y(GridLayout::HeaderHeight);
    QImage image(std::max(1, edges_.x(layout_.width())), height, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient ground(0, 0, 0, height);
    ground.setColorAt(0, QColor(HeaderTop));
    ground.setColorAt(1, QColor(HeaderBottom));
    painter.fillRect(image.rect(), ground);
    for (const auto& column : layout_.columns)
        painter.fillRect(edges_.x(column.right) - pen_, 0, pen_, height, QColor(SerialEdge));
    painter.fillRect(0, height - pen_, image.width(), pen_, QColor(HeaderEdge));
    painter.end();

    image.setDevicePixelRatio(edges_.scale());
    painter.begin(&image);
    painter.setPen(QColor(Ink));
    for (const auto& column : layout_.columns)
        look::drawFitted(painter, textRect(column, 1, GridLayout::HeaderHeight - 1),
            alignmentOf(column.alignment), font_, look::toText(column.caption));
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

} // namespace window
