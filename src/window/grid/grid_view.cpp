// SPDX-License-Identifier: MIT
// The sorted view on screen: a read-only grid that scrolls by rows.
#include "window/grid/grid_view.h"

#include "forms/plan.h"
#include "look/style.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

namespace window {

namespace {

constexpr int FrameWidth = 1;
constexpr int WheelStep = 120; // what one notch of a wheel reports
constexpr QRgb FrameColor = 0xFF9A9A9A;
constexpr QRgb FocusColor = 0xFF0054A6;

/// A scroll bar as wide as the columns leave room for. It leaves the wheel to the grid, which
/// counts in rows also where one step of the bar stands for several. One row among many moves no
/// pixel of it, and drawing it would take longer than all of the row.
class RowScrollBar : public QScrollBar {
public:
    explicit RowScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) { }

    void extent(int width) {
        if (width == width_)
            return;
        width_ = width;
        updateGeometry();
        parentWidget()->layout()->activate(); // now, not an event turn later
    }
    QSize sizeHint() const override {
        return width_ > 0 ? QSize(width_, QScrollBar::sizeHint().height()) : QScrollBar::sizeHint();
    }

    /// Takes over range and value together, then checks whether a pixel moves.
    void adopt(int page, int end, int row) {
        adopting_ = true;
        setPageStep(page);
        setRange(0, end);
        setValue(row);
        adopting_ = false;
        sliderChange(SliderValueChange);
    }

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

    void sliderChange(SliderChange change) override {
        if (adopting_)
            return;
        QStyleOptionSlider option;
        initStyleOption(&option);
        const Look now{style()->subControlRect(
                           QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this),
            value() == minimum(), value() == maximum()};
        const bool moves = change == SliderValueChange || change == SliderRangeChange;
        if (moves && now == look_)
            return;
        look_ = now;
        QScrollBar::sliderChange(change);
    }

private:
    struct Look {
        QRect slider;
        bool atBegin = false;
        bool atEnd = false;

        bool operator==(const Look&) const = default;
    };

    int width_ = 0;
    bool adopting_ = false;
    Look look_;
};

} // namespace

GridView::GridView(const controls::Grid& grid, const forms::plan::Control& control, QWidget* parent)
    : QAbstractScrollArea(parent), grid_(grid), planned_(control.place),
      painter_(look::toFont(forms::plan::GridFont)) {
    setVerticalScrollBar(new RowScrollBar(this));
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setLineWidth(FrameWidth);
    setFocusPolicy(Qt::StrongFocus);
    look::applyRow(control, *this);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, &GridView::stepBar);
    refresh();
}

void GridView::refresh() {
    controls::Rect wanted = planned_;
    wanted.width = grid_.Width;
    const QRect place = look::toPixels(wanted);
    adoptLayout(place.width()); // first, so that the new place is laid out with the new columns
    if (geometry() != place)
        setGeometry(place);
    followRequest();
    scrollTo(top_);
}

void GridView::scrollTo(std::int64_t row) {
    top_ = std::clamp<std::int64_t>(row, 0, lastTop());
    adoptScrollBar();
    repaintChanges();
}

void GridView::adoptLayout(int width) {
    GridLayout wanted = layoutOf(grid_);
    if (wanted == layout_)
        return;
    layout_ = std::move(wanted);
    static_cast<RowScrollBar*>(verticalScrollBar())
        ->extent(std::max(1, width - 2 * FrameWidth - layout_.width()));
    viewport()->update();
    announce(grid_.RowCount(), true);
}

void GridView::followRequest() {
    const controls::Grid::ScrollRequest& request = grid_.ScrollRow();
    if (request.count == requests_)
        return;
    requests_ = request.count;
    const std::int64_t row = std::min(request.row, grid_.RowCount()) - 1;
    if (row < 0)
        return;
    top_ = std::clamp(top_, std::max<std::int64_t>(0, row - fullRows() + 1), row);
}

void GridView::adoptScrollBar() {
    scale_ = RowScale(lastTop());
    auto* const bar = static_cast<RowScrollBar*>(verticalScrollBar());
    const QSignalBlocker ours(bar); // only the user's moves are to come back
    bar->adopt(fullRows(), scale_.barMaximum(), scale_.toBar(top_));
}

GridView::Shown GridView::look() const {
    Shown now{top_, grid_.RowCount(), grid_.generation(), {}};
    const std::int64_t end
        = std::min<std::int64_t>(now.rows, top_ + GridLayout::rowsIn(viewport()->height()));
    for (std::int64_t row = top_; row < end; ++row)
        now.patterns.push_back(grid_.patternOf(row + 1));
    return now;
}

void GridView::repaintChanges() {
    Shown now = look();
    bool changed = now.generation != shown_.generation;
    const bool moved = changed || now.top != shown_.top;
    const std::size_t before = moved ? 0 : shown_.patterns.size();
    const std::size_t after = now.patterns.size();
    QRegion stale = moved ? QRegion(viewport()->rect()) : QRegion();
    for (std::size_t i = 0; !moved && i < std::max(before, after); ++i) {
        const bool kept = i < before && i < after;
        if (kept && now.patterns[i] == shown_.patterns[i])
            continue;
        // At a broken scale the device's pixels on the edges belong to both neighbours.
        stale += rowRect(static_cast<int>(i)).adjusted(0, -1, 0, 1);
        changed = changed || kept;
    }
    const std::int64_t rowsBefore = shown_.rows;
    shown_ = std::move(now);
    if (!stale.isEmpty())
        viewport()->update(stale);
    announce(rowsBefore, changed);
}

void GridView::announce(std::int64_t rowsBefore, bool contentChanged) const {
    if (!QAccessible::isActive() || (rowsBefore == grid_.RowCount() && !contentChanged))
        return;
    const std::int64_t rows = grid_.RowCount();
    using Change = QAccessibleTableModelChangeEvent;
    Change change(const_cast<GridView*>(this), Change::DataChanged);
    if (rows != rowsBefore) {
        change.setModelChangeType(rows > rowsBefore ? Change::RowsInserted : Change::RowsRemoved);
        change.setFirstRow(narrowed(std::min(rows, rowsBefore)));
        change.setLastRow(narrowed(std::max(rows, rowsBefore) - 1));
    }
    QAccessible::updateAccessibility(&change);
}

int GridView::fullRows() const {
    return std::max(1, (viewport()->height() - GridLayout::HeaderHeight) / GridLayout::RowHeight);
}

std::int64_t GridView::lastTop() const {
    return std::max<std::int64_t>(0, grid_.RowCount() - fullRows());
}

QRect GridView::rowRect(int index) const {
    return {0, GridLayout::HeaderHeight + index * GridLayout::RowHeight, viewport()->width(),
        GridLayout::RowHeight};
}

QRect GridView::cellRect(std::int64_t row, int column) const {
    if (column < 1 || column > static_cast<int>(layout_.columns.size()))
        return {};
    const auto& place = layout_.columns[static_cast<std::size_t>(column - 1)];
    const QRect across(place.left, 0, place.right - place.left, GridLayout::HeaderHeight);
    if (row < 0)
        return across;
    if (row < top_
        || row >= std::min<std::int64_t>(
               grid_.RowCount(), top_ + GridLayout::rowsIn(viewport()->height())))
        return {};
    const QRect whole = rowRect(static_cast<int>(row - top_));
    return {across.left(), whole.top(), across.width(), whole.height()};
}

GridView::Place GridView::placeAt(const QPoint& point) const {
    Place place;
    if (!viewport()->rect().contains(point))
        return place;
    if (point.y() >= GridLayout::HeaderHeight)
        place.row = top_ + (point.y() - GridLayout::HeaderHeight) / GridLayout::RowHeight;
    if (place.row >= grid_.RowCount())
        return {};
    for (int j = 1; const auto& column : layout_.columns) {
        if (point.x() >= column.left && point.x() < column.right)
            place.column = j;
        ++j;
    }
    return place;
}

bool GridView::event(QEvent* event) {
    if (event->type() == QEvent::Wheel) { // passed on by the scroll bar, or refused at an end
        wheelEvent(static_cast<QWheelEvent*>(event));
        return true;
    }
    if (event->type() != QEvent::Paint)
        return QAbstractScrollArea::event(event);
    // Viewport and scroll bar cover everything but the frame, so filling draws a frame without a
    // gap at any scale.
    QPainter(this).fillRect(rect(), QColor(hasFocus() ? FocusColor : FrameColor));
    return true;
}

void GridView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter_.paint(painter, viewport()->rect(), event->rect(), grid_, layout_, top_);
    if (!hasFocus())
        return;
    const QRect inside = viewport()->rect();
    const QColor color(FocusColor);
    painter.fillRect(inside.left(), 0, 1, inside.height(), color);
    painter.fillRect(inside.right(), 0, 1, inside.height(), color);
    painter.fillRect(0, 0, inside.width(), 1, color);
    painter.fillRect(0, inside.bottom(), inside.width(), 1, color);
}

void GridView::resizeEvent(QResizeEvent* /*event*/) {
    scrollTo(top_);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
        return scrollTo(top_ - 1);
    case Qt::Key_Down:
        return scrollTo(top_ + 1);
    case Qt::Key_PageUp:
        return scrollTo(top_ - fullRows());
    case Qt::Key_PageDown:
        return scrollTo(top_ + fullRows());
    case Qt::Key_Home:
        return scrollTo(0);
    case Qt::Key_End:
        return scrollTo(lastTop());
    default:
        event->ignore();
    }
}

void GridView::wheelEvent(QWheelEvent* event) {
    wheelRest_ -= event->angleDelta().y() * QApplication::wheelScrollLines();
    const int rows = wheelRest_ / WheelStep;
    wheelRest_ -= rows * WheelStep;
    const std::int64_t before = top_;
    if (rows != 0)
        scrollTo(top_ + rows);
    // At an end the wheel goes on to what lies around the grid.
    event->setAccepted(rows == 0 || top_ != before);
}

void GridView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    update();
    viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    update();
    viewport()->update();
}

void GridView::scrollContentsBy(int /*dx*/, int /*dy*/) {
    const int value = verticalScrollBar()->value();
    if (value != scale_.toBar(top_))
        scrollTo(scale_.toRow(value));
}

void GridView::stepBar(int action) {
    if (!scale_.scaled())
        return;
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
        scrollTo(top_ + 1);
        break;
    case QAbstractSlider::SliderSingleStepSub:
        scrollTo(top_ - 1);
        break;
    case QAbstractSlider::SliderPageStepAdd:
        scrollTo(top_ + fullRows());
        break;
    case QAbstractSlider::SliderPageStepSub:
        scrollTo(top_ - fullRows());
        break;
    default:
        return;
    }
    // The bar would otherwise go on by a step of its own, which is several rows.
    verticalScrollBar()->setSliderPosition(verticalScrollBar()->value());
}

} // namespace window
