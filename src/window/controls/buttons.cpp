// SPDX-License-Identifier: MIT
// Buttons that click at once, and check boxes that follow their models.
#include "window/controls/buttons.h"

#include "forms/plan.h"
#include "look/style.h"
#include "look/text.h"
#include "shell/handlers.h"

#include <QShortcutEvent>
#include <QStyleOptionButton>

namespace window {

CommandButton::CommandButton(const forms::plan::Control& control, QWidget* parent)
    : QPushButton(look::toText(control.caption), parent) {
    look::applyRow(control, *this);
    setAutoDefault(true); // Enter presses it in the main window too, not only in dialogs
    setFocusPolicy(Qt::TabFocus);
}

bool CommandButton::event(QEvent* event) {
    if (event->type() != QEvent::Shortcut
        || static_cast<const QShortcutEvent*>(event)->isAmbiguous())
        return QPushButton::event(event);
    click();
    return true;
}

CheckView::CheckView(const Session& session, const forms::plan::Control& control, QWidget* parent)
    : QCheckBox(look::toText(control.caption), parent), session_(session), index_(control.index) {
    look::applyRow(control, *this);
    setFocusPolicy(Qt::TabFocus);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect room = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
    setFont(look::fitted(font(), text(), room.width()).font);
}

bool CheckView::hitButton(const QPoint& point) const {
    return rect().contains(point);
}

void CheckView::nextCheckState() {
    Frm_Main::Check_Click(session_.program, session_.platform, index_);
    refresh();
}

void CheckView::refresh() {
    setChecked(session_.program.Frm_Main.Check[static_cast<std::size_t>(index_)].Value != 0);
}

} // namespace window
