// SPDX-License-Identifier: MIT
// Clicks a button as soon as its access key is hit.
#include "window/controls/command_button.h"

#include "look/control_names.h"
#include "look/style.h"

#include <QShortcutEvent>

namespace window {

CommandButton::CommandButton(const forms::plan::Control& control, QWidget* parent)
    : QPushButton(look::toText(control.caption), parent) {
    setObjectName(look::controlName(control.name, control.index));
    setGeometry(look::toPixels(control.place));
    setAutoDefault(true); // Enter presses it in the main window too, not only in dialogs
}

bool CommandButton::event(QEvent* event) {
    if (event->type() != QEvent::Shortcut
        || static_cast<const QShortcutEvent*>(event)->isAmbiguous())
        return QPushButton::event(event);
    click();
    return true;
}

} // namespace window
