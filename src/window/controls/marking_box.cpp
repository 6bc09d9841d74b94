// SPDX-License-Identifier: MIT
// Hands a click on a marking box to the program.
#include "window/controls/marking_box.h"

#include "forms/plan.h"
#include "shell/handlers.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace window {

namespace {

constexpr int focusInset = 3; // pixels

} // namespace

MarkingBox::MarkingBox(const Session& session, const forms::plan::Control& control, QWidget* parent)
    : TextBoxView(session, control, parent) {
    setReadOnly(true);
    setTextMargins(focusInset, 0, focusInset, 0); // clear of the frame around it
    setCursor(Qt::PointingHandCursor);
}

void MarkingBox::ask() {
    Frm_Main::Text_Click(session().program, session().platform, index());
    refresh();
}

void MarkingBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        deselect();
        ask();
    }
}

void MarkingBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return ask();
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void MarkingBox::paintEvent(QPaintEvent* event) {
    TextBoxView::paintEvent(event);
    if (!hasFocus())
        return;
    // No caret blinks here, and the usual frame is lost around the blue of a box with a value.
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(focusInset, focusInset, -focusInset - 1, -focusInset - 1));
}

} // namespace window
