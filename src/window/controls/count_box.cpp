// SPDX-License-Identifier: MIT
// Hands what is typed into the count box to the program and keeps back what it drops.
#include "window/controls/count_box.h"

#include "forms/plan.h"
#include "shell/handlers.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>

namespace window {

namespace {

constexpr char16_t enter = 13;

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
        passes(QChar(enter));
        // What was typed is done with. The undo key means the coups from here on.
        setText(text());
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

} // namespace window
