// SPDX-License-Identifier: MIT
// Brings a text box in line with its model.
#include "window/controls/text_box_view.h"

#include "forms/plan.h"
#include "look/control_names.h"
#include "look/style.h"

#include <QSignalBlocker>

namespace window {

TextBoxView::TextBoxView(
    const Session& session, const forms::plan::Control& control, QWidget* parent)
    : QLineEdit(parent), session_(session), index_(control.index) {
    setObjectName(look::controlName(control.name, control.index));
    setGeometry(look::toPixels(control.place));
    setToolTip(look::toText(control.toolTip));
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

} // namespace window
