// SPDX-License-Identifier: MIT
// Scrolling a very long permanence by keys, wheel and scroll bar.
#include "landing.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <algorithm>
#include <random>

namespace bench {

namespace {

class Hand {
public:
    explicit Hand(window::GridView& view) : view_(view), bar_(*view.verticalScrollBar()) { }

    void key(Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&view_, &event);
    }

    /// One notch, towards the user for +1.
    void wheel(int notches) {
        const QPointF place = view_.viewport()->rect().center();
        QWheelEvent event(place, view_.viewport()->mapToGlobal(place), {}, {0, -120 * notches},
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view_.viewport(), &event);
    }

    /// Drags the bar's handle to a part of its way, 0 to 1.
    void drag(double part) {
        const QRect handle = place(QStyle::SC_ScrollBarSlider);
        const QRect groove = place(QStyle::SC_ScrollBarGroove);
        const int way = groove.height() - handle.height();
        const QPoint from = handle.center();
        const int top = groove.top() + static_cast<int>(part * way);
        mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
        mouse(QEvent::MouseMove, {from.x(), top + from.y() - handle.top()}, Qt::NoButton);
        mouse(
            QEvent::MouseButtonRelease, {from.x(), top + from.y() - handle.top()}, Qt::LeftButton);
    }

private:
    QRect place(QStyle::SubControl part) const {
        QStyleOptionSlider option;
        option.initFrom(&bar_);
        option.orientation = Qt::Vertical;
        option.minimum = bar_.minimum();
        option.maximum = bar_.maximum();
        option.pageStep = bar_.pageStep();
        option.sliderPosition = bar_.sliderPosition();
        option.sliderValue = bar_.value();
        option.subControls = QStyle::SC_All;
        return bar_.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar_);
    }

    void mouse(QEvent::Type type, const QPoint& point, Qt::MouseButton button) {
        const Qt::MouseButtons held
            = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, point, bar_.mapToGlobal(point), button, held, Qt::NoModifier);
        QApplication::sendEvent(&bar_, &event);
    }

    window::GridView& view_;
    QScrollBar& bar_;
};

/// The pixels of a serial number, without the ground around it.
QImage serial(window::GridView& view, std::int64_t row) {
    const QRect cell = view.cellRect(row - 1, 1);
    return view.viewport()->grab(cell.adjusted(0, 0, -2, 0)).toImage();
}

void keysAndWheel(Report& report, window::GridView& view, std::int64_t rows) {
    Hand hand(view);
    const std::int64_t page = view.fullRows();
    const std::int64_t last = rows - page;
    const auto at = [&](std::int64_t top, const char* way) {
        report.check(view.top() == top,
            text("%s leads to row %lld instead of %lld", way, static_cast<long long>(view.top()),
                static_cast<long long>(top)));
    };
    hand.key(Qt::Key_Home);
    at(0, "Home");
    hand.key(Qt::Key_PageDown);
    at(page, "Page Down");
    hand.key(Qt::Key_Down);
    at(page + 1, "Down");
    hand.wheel(1);
    at(page + 1 + QApplication::wheelScrollLines(), "a notch of the wheel");
    hand.wheel(-1);
    hand.key(Qt::Key_Up);
    hand.key(Qt::Key_PageUp);
    at(0, "back up");
    hand.key(Qt::Key_End);
    at(last, "End");
    hand.key(Qt::Key_PageUp);
    at(last - page, "Page Up");
    hand.wheel(1000);
    at(last, "the wheel at the end");
}

void scrollBar(Report& report, window::GridView& view, std::int64_t rows) {
    Hand hand(view);
    const std::int64_t last = rows - view.fullRows();
    for (const double part : {0.0, 0.5, 0.25, 1.0}) {
        hand.drag(part);
        const auto wanted = static_cast<std::int64_t>(part * static_cast<double>(last));
        // A pixel of the bar stands for this many rows.
        const std::int64_t pixel = last / 400;
        report.check(
            part == 0 || part == 1 ? view.top() == wanted : std::abs(view.top() - wanted) <= pixel,
            text("the handle at %.2f of its way shows row %lld of %lld", part,
                static_cast<long long>(view.top()), static_cast<long long>(rows)));
    }
    std::mt19937_64 random(3);
    for (int i = 0; i < 1000; ++i) {
        const auto row = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(last + 1));
        view.scrollTo(row);
        report.check(view.top() == row && view.verticalScrollBar()->value() == row, "any row");
    }
}

} // namespace

void landing(Report& report, Desk& desk) {
    window::GridView& view = desk.view();
    const std::int64_t rows = desk.rows();
    keysAndWheel(report, view, rows);
    scrollBar(report, view, rows);
    view.scrollTo(rows);
    report.check(!view.cellRect(rows - 1, 1).isNull()
            && view.cellRect(rows - 1, 1).bottom() < view.viewport()->height(),
        "the last row is in view as a whole");
    // Were the number cut, the last digits wouldn't show, and neighbours looked alike.
    report.check(serial(view, rows) != serial(view, rows - 1), "the last digit of the last row");
    report.line("Scrolling " + shortNumber(rows)
        + " rows: Home, End, page keys, wheel, 1,000 single rows, dragged bar, last row");
}

} // namespace bench
