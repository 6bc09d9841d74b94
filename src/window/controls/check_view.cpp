// SPDX-License-Identifier: MIT
// Brings a check box in line with its model.
#include "window/controls/check_view.h"

#include "forms/plan.h"
#include "look/control_names.h"
#include "look/style.h"
#include "shell/handlers.h"

#include <QStyleOptionButton>

namespace window {

CheckView::CheckView(const Session& session, const forms::plan::Control& control, QWidget* parent)
    : QCheckBox(look::toText(control.caption), parent), session_(session), index_(control.index) {
    setObjectName(look::controlName(control.name, control.index));
    setGeometry(look::toPixels(control.place));
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
