// SPDX-License-Identifier: MIT
// Brings the text boxes in line with their models and hands what a user does to the program.
#include "window/controls/text_boxes.h"

#include "forms/plan.h"
#include "look/style.h"
#include "look/text.h"
#include "shell/handlers.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace window {

TextBoxView::TextBoxView(
    const Session& session, const forms::plan::Control& control, QWidget* parent)
    : QLineEdit(parent), session_(session), index_(control.index) {
    look::applyRow(control, *this);
}

const controls::TextBox& TextBoxView::model() const {
    return session_.program.Frm_Main.Text[static_cast<std::size_t>(index_)];
}

void TextBoxView::refresh() {
    const QString shown = look::toText(model().Text);
    if (shown != text()) {
        const QSignalBlocker quiet(this);
        setText(shown);
    }
    const QColor back = look::toColor(model().BackColor);
    const QColor fore = look::toColor(model().ForeColor);
    QPalette colors = palette();
    if (colors.color(QPalette::Base) == back && colors.color(QPalette::Text) == fore)
        return;
    colors.setColor(QPalette::Base, back);
    colors.setColor(QPalette::Text, fore);
    setPalette(colors);
}

namespace {

constexpr char16_t Enter = 13;

/// Whether a key types a character, by the rule of the text box below: Ctrl makes it a command, but
/// Ctrl with Alt is how some keyboards reach their third level, and characters that can't be seen
/// are typed even with Ctrl.
bool typesCharacter(const QKeyEvent& event) {
    if (event.text().isEmpty())
        return false;
    const QChar::Category category = event.text().front().category();
    const Qt::KeyboardModifiers command = event.modifiers() & ~Qt::ShiftModifier;
    return category == QChar::Other_Format
        || (category != QChar::Other_Control && command != Qt::ControlModifier);
}

} // namespace

CountBox::CountBox(const Session& session, const forms::plan::Control& control, QWidget* parent)
    : TextBoxView(session, control, parent) {
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        Frm_Main::Text_Change(
            this->session().program, this->session().platform, index(), text.toStdString());
    });
}

bool CountBox::passes(QChar typed) const {
    auto code = static_cast<std::int16_t>(typed.unicode());
    Frm_Main::Text_KeyPress(session().program, session().platform, index(), code);
    return code != 0;
}

void CountBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        passes(QChar(Enter));
        // The text is committed: undo now means coups, Enter repeats the count, typing replaces it.
        setText(text());
        selectAll();
        return;
    }
    if (typesCharacter(*event) && !passes(event->text().front()))
        return;
    QLineEdit::keyPressEvent(event);
}

bool CountBox::event(QEvent* event) {
    // With no typing to take back, the key takes back a coup as it does everywhere else.
    if (event->type() == QEvent::ShortcutOverride && !isUndoAvailable()
        && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
        event->ignore();
        return false;
    }
    return TextBoxView::event(event);
}

void CountBox::inputMethodEvent(QInputMethodEvent* event) {
    QString typed = event->commitString();
    typed.removeIf([this](QChar character) { return !passes(character); });
    QInputMethodEvent rest(event->preeditString(), event->attributes());
    rest.setCommitString(typed, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&rest);
}

void CountBox::focusInEvent(QFocusEvent* event) {
    TextBoxView::focusInEvent(event);
    clickedInto_ = event->reason() == Qt::MouseFocusReason;
}

void CountBox::mouseReleaseEvent(QMouseEvent* event) {
    TextBoxView::mouseReleaseEvent(event);
    if (std::exchange(clickedInto_, false) && !hasSelectedText())
        selectAll();
}

namespace {

constexpr int FocusInset = 3; // pixels

} // namespace

MarkingBox::MarkingBox(const Session& session, const forms::plan::Control& control, QWidget* parent)
    : TextBoxView(session, control, parent) {
    setReadOnly(true);
    setTextMargins(FocusInset, 0, FocusInset, 0); // clear of the frame around it
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
    painter.drawRect(rect().adjusted(FocusInset, FocusInset, -FocusInset - 1, -FocusInset - 1));
}

} // namespace window
