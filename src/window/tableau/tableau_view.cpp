// SPDX-License-Identifier: MIT
// Painting of the tableau.
#include "window/tableau/tableau_view.h"

#include "look/text.h"
#include "stats/counters.h"
#include "stats/tableau.h"

#include <QAccessible>
#include <QEvent>
#include <QFontMetrics>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace window {

namespace plan = forms::plan;

namespace {

// Number and count share a cell: the number above, the count below it. In the wide cell of the
// zero both keep to the badge, because labels lie over the cell's ends.
constexpr int NumberTop = 4; // pixels from the upper edge to the digits
constexpr int BadgeBottom = 3; // pixels from the digits to the lower edge
constexpr int BadgeMargin = 1; // pixels beside the widest count
constexpr int LabelIndent = 2; // pixels before a caption, which begins with a blank itself

/// An outline of a width, half of it within the rectangle.
void drawOutline(QPainter& painter, const QRect& rect, int width, const QColor& color) {
    const int out = width / 2;
    const int in = width - out;
    const QRect outer = rect.adjusted(-out, -out, out, out);
    const QRect inner = rect.adjusted(in, in, -in, -in);
    painter.fillRect(QRect(outer.topLeft(), QPoint(outer.right(), inner.top() - 1)), color);
    painter.fillRect(QRect(QPoint(outer.left(), inner.bottom() + 1), outer.bottomRight()), color);
    painter.fillRect(
        QRect(QPoint(outer.left(), inner.top()), QPoint(inner.left() - 1, inner.bottom())), color);
    painter.fillRect(
        QRect(QPoint(inner.right() + 1, inner.top()), QPoint(outer.right(), inner.bottom())),
        color);
}

void drawShape(QPainter& painter, const plan::Shape& shape) {
    const QRect place = look::toPixels(shape.place);
    if (shape.filled)
        painter.fillRect(place, look::toColor(shape.fill));
    drawOutline(painter, place, shape.border, look::toColor(controls::Black));
}

/// The one that look::fitted() comes to later.
const QFont& smaller(const QFont& one, const QFont& other) {
    const auto size = [](const QFont& font) {
        return std::pair(
            font.pixelSize(), font.stretch() == QFont::AnyStretch ? 100 : font.stretch());
    };
    return size(other) < size(one) ? other : one;
}

/// The label that faces one across the numbers and looks like it; itself, if there is none or if
/// its count has a line of its own.
std::size_t oppositeOf(std::size_t index) {
    const plan::GradientLabel& label = plan::CounterLabels[index];
    const controls::Rect& place = label.place;
    for (std::size_t i = 0; i < plan::CounterLabels.size(); ++i) {
        const plan::GradientLabel& other = plan::CounterLabels[i];
        if (i != index && other.from == label.from && place.width != place.height
            && std::abs(other.place.top - place.top) < place.height)
            return i;
    }
    return index;
}

QPointF toPoint(controls::Twips x, controls::Twips y) {
    return {static_cast<qreal>(controls::toPixels(x)), static_cast<qreal>(controls::toPixels(y))};
}

void drawGround(QPainter& painter) {
    std::for_each(plan::Shapes.rbegin(), plan::Shapes.rend(),
        [&](const plan::Shape& shape) { drawShape(painter, shape); });
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const plan::Line& line : plan::Lines) {
        painter.setPen(QPen(look::toColor(controls::Black), line.width, Qt::SolidLine, Qt::RoundCap,
            Qt::RoundJoin));
        painter.drawLine(toPoint(line.x1, line.y1), toPoint(line.x2, line.y2));
    }
    painter.restore();
}

} // namespace

TableauView::TableauView(const Session& session, QWidget* panel)
    : QWidget(panel), session_(session) {
    setGeometry(panel->rect());
    setMouseTracking(true);
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        labels_[i].plan = &plan::CounterLabels[i];
        labels_[i].place = look::toPixels(plan::CounterLabels[i].place);
        // The panel's edge cuts some labels off; their texts keep within what is seen.
        labels_[i].room = labels_[i].place.intersected(rect()).adjusted(LabelIndent, 0, -1, 0);
        covered_ += labels_[i].place;
        labels_[i].opposite = &labels_[oppositeOf(i)];
    }
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        cells_[i].place = look::toPixels(plan::TableauCells[i].place);
        cells_[i].badge = look::toPixels(plan::Badges[i].place);
        cells_[i].digits = layOut(
            {look::toFont(plan::TableauFont), QString::number(plan::TableauCells[i].number)});
        covered_ += cells_[i].place;
    }
    refresh();
}

void TableauView::refresh() {
    for (int i = 0; i < LabelCount; ++i)
        refreshLabel(i);
    for (int number = 0; number < chances::NumberCount; ++number)
        refreshCell(number);
    // Nobody can listen to the single coups of a long run; its end is announced.
    if (program().Frm_Main.Enabled)
        tellChanges();
    else
        setHovered(-1);
}

void TableauView::refreshLabel(int index) {
    Label& label = labels_[static_cast<std::size_t>(index)];
    const QString caption
        = look::toText(M_Chancen::captionOf(program(), label.plan->name, label.plan->index));
    if (caption == label.caption)
        return;
    label.caption = caption;
    const QFont font = look::toFont({});
    const bool square = label.place.width() == label.place.height();
    const qsizetype cut = square ? caption.lastIndexOf(QLatin1Char(' ')) : caption.size();
    const QFont before = label.first.font;
    label.first = look::refitted(label.first, font, caption.left(cut), label.room.width());
    if (label.first.font != before)
        update(label.opposite->place);
    label.second = look::refitted(label.second, font, caption.mid(cut), label.room.width());
    untold_[static_cast<std::size_t>(index)] = true;
    update(label.place);
}

void TableauView::refreshCell(int number) {
    Cell& cell = cells_[static_cast<std::size_t>(number)];
    const controls::CellColors colors = M_Tableau::tableauColors(program(), number);
    const QString count
        = look::toText(M_Chancen::captionOf(program(), plan::Name::XPLabel_Plein, number));
    const controls::Color countColor = M_Chancen::badgeColor(program(), number);
    const auto item = static_cast<std::size_t>(number);
    if (colors != cell.colors || count != cell.count || countColor != cell.countColor) {
        untold_[FirstNumber + item] = true;
        update(cell.place);
    }
    if (count != cell.count) {
        untold_[FirstBadge + item] = true;
        cell.fit = look::refitted(
            cell.fit, look::toFont(plan::BadgeFont), count, cell.badge.width() - 2 * BadgeMargin);
        cell.countDigits = layOut(cell.fit);
    }
    cell.colors = colors;
    cell.count = count;
    cell.countColor = countColor;
}

void TableauView::tellChanges() {
    for (int item = 0; item < ItemCount; ++item) {
        if (!std::exchange(untold_[static_cast<std::size_t>(item)], false)
            || !QAccessible::isActive())
            continue;
        const bool number = item >= FirstNumber && item < FirstBadge;
        QAccessibleEvent told(
            this, number ? QAccessible::DescriptionChanged : QAccessible::NameChanged);
        told.setChild(item);
        QAccessible::updateAccessibility(&told);
    }
}

QString TableauView::itemText(int item) const {
    if (item >= FirstBadge)
        return cells_[static_cast<std::size_t>(item - FirstBadge)].count;
    if (item >= FirstNumber)
        return QString::number(item - FirstNumber);
    return labels_[static_cast<std::size_t>(item)].caption;
}

bool TableauView::isCut(int item) const {
    if (item >= FirstBadge) {
        const Cell& cell = cells_[static_cast<std::size_t>(item - FirstBadge)];
        return cell.fit.text != cell.count;
    }
    if (item >= FirstNumber)
        return false;
    const Label& label = labels_[static_cast<std::size_t>(item)];
    return label.first.text + label.second.text != label.caption;
}

QRect TableauView::itemRect(int item) const {
    if (item >= FirstBadge)
        return cells_[static_cast<std::size_t>(item - FirstBadge)].badge;
    if (item >= FirstNumber)
        return cells_[static_cast<std::size_t>(item - FirstNumber)].place;
    return labels_[static_cast<std::size_t>(item)].place;
}

int TableauView::itemAt(const QPoint& point) const {
    // Labels lie in front of the numbers.
    for (int item = 0; item < FirstBadge; ++item)
        if (itemRect(item).contains(point))
            return item;
    return -1;
}

void TableauView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Items hide what lies behind them; a run changes little else.
    if (!event->region().subtracted(covered_).isEmpty())
        drawGround(painter);
    for (int number = 0; number < chances::NumberCount; ++number)
        if (event->region().intersects(itemRect(FirstNumber + number)))
            drawCell(painter, number);
    for (const Label& label : labels_)
        if (event->region().intersects(label.place))
            drawLabel(painter, label);
}

void TableauView::drawCell(QPainter& painter, int number) const {
    const Cell& cell = cells_[static_cast<std::size_t>(number)];
    const QColor back = look::toColor(number == hovered_ ? plan::HoverBack : cell.colors.BackColor);
    painter.fillRect(cell.place, back);
    drawDigits(painter, cell.badge.adjusted(0, NumberTop, 0, 0), Qt::AlignTop | Qt::AlignHCenter,
        cell.digits, look::toColor(cell.colors.ForeColor), back);
    drawDigits(painter, cell.badge.adjusted(BadgeMargin, 0, -BadgeMargin, -BadgeBottom),
        Qt::AlignBottom | Qt::AlignHCenter, cell.countDigits, look::toColor(cell.countColor), back);
}

void TableauView::drawLabel(QPainter& painter, const Label& label) {
    QLinearGradient gradient(label.place.topLeft(), label.place.bottomLeft() + QPoint(0, 1));
    gradient.setColorAt(0, look::toColor(label.plan->from));
    gradient.setColorAt(1, look::toColor(label.plan->to));
    painter.fillRect(label.place, gradient);
    painter.setPen(look::toColor(controls::Black));
    const int lines = label.second.text.isEmpty() ? 1 : 2;
    QRect line = label.room;
    line.setHeight(QFontMetrics(look::toFont({})).height());
    line.moveTop(label.room.top() + (label.room.height() - lines * line.height()) / 2);
    for (const look::Fit* fit : {&label.first, &label.second}) {
        painter.setFont(smaller(fit->font, label.opposite->first.font));
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, fit->text);
        line.translate(0, line.height());
    }
}

void TableauView::setHovered(int number) {
    if (number == hovered_)
        return;
    for (const int changed : {hovered_, number})
        if (changed >= 0)
            update(itemRect(FirstNumber + changed));
    hovered_ = number;
}

void TableauView::mouseMoveEvent(QMouseEvent* event) {
    const int item = itemAt(event->pos());
    setHovered(item >= FirstNumber && program().Frm_Main.Enabled ? item - FirstNumber : -1);
}

bool TableauView::event(QEvent* event) {
    if (event->type() == QEvent::Leave || event->type() == QEvent::Hide)
        setHovered(-1);
    return QWidget::event(event);
}

} // namespace window
