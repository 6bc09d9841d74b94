// SPDX-License-Identifier: MIT
// Clicks a button as soon as its access key is hit.
#include "window/command_button.h"

#include "window/control_names.h"
#include "window/style.h"

#include <QShortcutEvent>

namespace window {

CommandButton::CommandButton(const forms::plan::Control& control, QWidget* parent)
    : QPushButton(toText(control.caption), parent) {
    setObjectName(controlName(control.name, control.index));
    setGeometry(toPixels(control.place));
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
