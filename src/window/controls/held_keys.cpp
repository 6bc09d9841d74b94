// SPDX-License-Identifier: MIT
// Distinguishes a key that is held down from one that is pressed again.
#include "window/controls/held_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace window {

namespace {

bool moves(int key) {
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    default:
        return false;
    }
}

bool types(const QKeyEvent& press) {
    const auto* box = qobject_cast<const QLineEdit*>(QApplication::focusWidget());
    if (box == nullptr || box->isReadOnly() || press.modifiers().testFlag(Qt::ControlModifier))
        return false;
    return press.key() == Qt::Key_Backspace || press.key() == Qt::Key_Delete
        || (!press.text().isEmpty() && press.text().front().isPrint());
}

bool mayRepeat(const QKeyEvent& press) {
    return !press.modifiers().testFlag(Qt::AltModifier) && (moves(press.key()) || types(press));
}

} // namespace

bool HeldKeys::eventFilter(QObject* /*receiver*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyRelease:
        released_ = static_cast<QKeyEvent*>(event)->key();
        releaseTime_ = static_cast<QKeyEvent*>(event)->timestamp();
        return false;
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride: { // once this one is accepted no shortcut is looked for
        const auto& press = *static_cast<const QKeyEvent*>(event);
        if (!repeats(press) || mayRepeat(press))
            return false;
        event->accept();
        return true;
    }
    default:
        return false;
    }
}

bool HeldKeys::repeats(const QKeyEvent& press) const {
    // The toolkit marks repeats, but can miss one when it is slower than the keyboard. That one
    // still shows: it comes at the very moment of the release before it, which no finger can do.
    const bool sameMoment = releaseTime_ != 0 && press.timestamp() == releaseTime_;
    return press.isAutoRepeat() || (sameMoment && press.key() == released_);
}

} // namespace window
