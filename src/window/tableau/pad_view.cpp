// SPDX-License-Identifier: MIT
// Painting and input of the number pad.
#include "window/tableau/pad_view.h"

#include "look/style.h"
#include "look/text.h"
#include "shell/handlers.h"
#include "stats/counters.h"
#include "stats/tableau.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace window {

namespace plan = forms::plan;

namespace {

constexpr int Columns = 3;
constexpr int LastNumber = chances::NumberCount - 1;

/// The cell that an arrow key leads to: three columns with the zero above them. At an edge the
/// cell stays.
int neighbour(int number, int key) {
    if (number == 0)
        return key == Qt::Key_Down ? 2 : 0;
    const int column = (number - 1) % Columns;
    switch (key) {
    case Qt::Key_Left:
        return column > 0 ? number - 1 : number;
    case Qt::Key_Right:
        return column < Columns - 1 ? number + 1 : number;
    case Qt::Key_Up:
        return std::max(number - Columns, 0);
    case Qt::Key_Down:
        return number + Columns <= LastNumber ? number + Columns : number;
    default:
        return number;
    }
}

void drawFrame(QPainter& painter, const QRect& rect, const QColor& color) {
    painter.fillRect(rect.x(), rect.y(), rect.width(), 1, color);
    painter.fillRect(rect.x(), rect.bottom(), rect.width(), 1, color);
    painter.fillRect(rect.x(), rect.y(), 1, rect.height(), color);
    painter.fillRect(rect.right(), rect.y(), 1, rect.height(), color);
}

} // namespace

PadView::PadView(const Session& session, const plan::Control& control, QWidget* panel)
    : QWidget(panel), session_(session) {
    look::applyRow(control, *this);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (const plan::NumberCell& row : plan::PadCells) {
        Cell& cell = cells_[static_cast<std::size_t>(row.number)];
        cell.place = look::toPixels(row.place);
        cell.digits = layOut({look::toFont(plan::PadFont), QString::number(row.number)});
    }
    refresh();
}

void PadView::refresh() {
    for (int number = 0; number <= LastNumber; ++number) {
        Cell& cell = cells_[static_cast<std::size_t>(number)];
        const controls::CellColors colors = M_Tableau::padColors(program(), number);
        const std::int64_t count = M_Chancen::Anz_Plein(program(), number);
        if (colors != cell.colors)
            updateCell(number);
        if (colors != cell.colors || count != cell.count)
            untold_ |= chances::NumberSet{1} << number;
        cell.colors = colors;
        cell.count = count;
    }
    // Nobody can listen to the single coups of a long run; its end is announced.
    if (takesInput())
        tellChanges();
    else
        release();
}

void PadView::tellChanges() {
    for (int number = 0; untold_ != 0 && number <= LastNumber; ++number)
        if (chances::contains(untold_, number))
            tell(QAccessible::DescriptionChanged, number);
    untold_ = 0;
}

void PadView::tell(QAccessible::Event type, int number) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent told(this, type);
    told.setChild(number);
    QAccessible::updateAccessibility(&told);
}

void PadView::release() {
    firstDigit_ = 0;
    if (hovered_ >= 0 || pressed_ >= 0) {
        setHovered(-1);
        setPressed(-1, false);
    }
}

bool PadView::takesInput() const {
    return isEnabled() && program().Frm_Main.Enabled;
}

void PadView::enter(int number) {
    if (takesInput())
        Frm_Main::xpLabel_Tableau_Click(session_.program, session_.platform, number);
}

void PadView::setCurrent(int number) {
    if (number == current_)
        return;
    updateCell(current_);
    current_ = number;
    updateCell(current_);
    tellFocus();
}

int PadView::cellAt(const QPoint& point) const {
    // Neighbours share an edge; the later cell lies in front.
    for (int number = LastNumber; number >= 0; --number)
        if (cellRect(number).contains(point))
            return number;
    return -1;
}

PadView::Look PadView::look(int number) const {
    const bool held = number == pressed_ && (!byMouse_ || number == hovered_);
    if (held)
        return {look::toColor(controls::White), look::toColor(M_Tableau::classColor(number))};
    if (number == hovered_ && pressed_ < 0)
        return {look::toColor(plan::HoverFore), look::toColor(plan::HoverBack)};
    const controls::CellColors& colors = cells_[static_cast<std::size_t>(number)].colors;
    return {look::toColor(colors.ForeColor), look::toColor(colors.BackColor)};
}

void PadView::drawCell(QPainter& painter, int number) const {
    const QRect place = cellRect(number);
    const Look now = look(number);
    painter.fillRect(place, now.back);
    drawFrame(painter, place, look::toColor(controls::Black));
    drawDigits(painter, place, Qt::AlignCenter, cells_[static_cast<std::size_t>(number)].digits,
        now.fore, now.back);
}

void PadView::drawFocus(QPainter& painter) const {
    // White between two black lines is seen on every colour that a cell can have.
    const QRect place = cellRect(current_);
    drawFrame(painter, place.adjusted(-1, -1, 1, 1), look::toColor(controls::Black));
    drawFrame(painter, place, look::toColor(controls::White));
    drawFrame(painter, place.adjusted(1, 1, -1, -1), look::toColor(controls::Black));
}

void PadView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), look::toColor(controls::Cloth));
    for (int number = 0; number <= LastNumber; ++number)
        if (event->region().intersects(cellRect(number)))
            drawCell(painter, number);
    if (hasFocus())
        drawFocus(painter);
}

void PadView::updateCell(int number) {
    if (number >= 0)
        update(cellRect(number).adjusted(-1, -1, 1, 1));
}

void PadView::setHovered(int number) {
    if (number == hovered_)
        return;
    updateCell(hovered_);
    hovered_ = number;
    updateCell(hovered_);
}

void PadView::setPressed(int number, bool byMouse) {
    // While a cell is held down the one under the pointer doesn't turn blue.
    updateCell(hovered_);
    updateCell(pressed_);
    pressed_ = number;
    byMouse_ = byMouse;
    updateCell(pressed_);
}

void PadView::mousePressEvent(QMouseEvent* event) {
    const int number = cellAt(event->pos());
    if (event->button() != Qt::LeftButton || number < 0 || !takesInput())
        return;
    firstDigit_ = 0;
    setHovered(number);
    setPressed(number, true);
    setCurrent(number);
}

void PadView::mouseMoveEvent(QMouseEvent* event) {
    setHovered(takesInput() ? cellAt(event->pos()) : -1);
}

void PadView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !byMouse_ || pressed_ < 0)
        return;
    const int number = pressed_;
    setPressed(-1, false);
    if (cellAt(event->pos()) == number)
        enter(number);
}

bool PadView::takes(const QKeyEvent& event) const {
    return !(event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) && takesInput();
}

bool PadView::takeDigit(const QKeyEvent& event) {
    const int digit = event.key() - Qt::Key_0;
    if (!takes(event) || digit < 0 || digit > 9)
        return false;
    setFocus();
    typeDigit(digit);
    return true;
}

void PadView::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (takeDigit(*event))
        return;
    if (!takes(*event))
        return QWidget::keyPressEvent(event);
    if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
        firstDigit_ = 0;
        setPressed(current_, false);
        enter(current_);
    } else if (key == Qt::Key_Home || key == Qt::Key_End || key == Qt::Key_Left
        || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down) {
        moveBy(key);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void PadView::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat() || pressed_ < 0 || byMouse_)
        return QWidget::keyReleaseEvent(event);
    setPressed(-1, false);
}

void PadView::moveBy(int key) {
    firstDigit_ = 0;
    if (key == Qt::Key_Home)
        setCurrent(0);
    else if (key == Qt::Key_End)
        setCurrent(LastNumber);
    else
        setCurrent(neighbour(current_, key));
}

void PadView::typeDigit(int digit) {
    const int both = 10 * firstDigit_ + digit;
    const bool second = firstDigit_ > 0 && both <= LastNumber;
    setCurrent(second ? both : digit);
    firstDigit_ = second ? 0 : digit;
}

void PadView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    updateCell(current_);
    // The toolkit announces the widget's focus after this event; the cell comes last.
    QMetaObject::invokeMethod(this, &PadView::tellFocus, Qt::QueuedConnection);
}

void PadView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    firstDigit_ = 0;
    setPressed(-1, false);
    updateCell(current_);
}

bool PadView::event(QEvent* event) {
    if (event->type() == QEvent::Leave || event->type() == QEvent::Hide)
        setHovered(-1);
    return QWidget::event(event);
}

void PadView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        refresh();
}

void PadView::tellFocus() {
    if (hasFocus())
        tell(QAccessible::Focus, current_);
}

} // namespace window
