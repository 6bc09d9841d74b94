// SPDX-License-Identifier: MIT
// Brings a text box in line with its model.
#include "window/text_box_view.h"

#include "forms/plan.h"
#include "window/control_names.h"
#include "window/style.h"

#include <QSignalBlocker>

namespace window {

TextBoxView::TextBoxView(
    const Session& session, const forms::plan::Control& control, QWidget* parent)
    : QLineEdit(parent), session_(session), index_(control.index) {
    setObjectName(controlName(control.name, control.index));
    setGeometry(toPixels(control.place));
    setToolTip(toText(control.toolTip));
}

const controls::TextBox& TextBoxView::model() const {
    return session_.programm.Frm_Main.Text[static_cast<std::size_t>(index_)];
}

void TextBoxView::refresh() {
    const QString shown = toText(model().Text);
    if (shown != text()) {
        const QSignalBlocker quiet(this);
        setText(shown);
    }
    const QColor back = toColor(model().BackColor);
    const QColor fore = toColor(model().ForeColor);
    QPalette colors = palette();
    if (colors.color(QPalette::Base) == back && colors.color(QPalette::Text) == fore)
        return;
    colors.setColor(QPalette::Base, back);
    colors.setColor(QPalette::Text, fore);
    setPalette(colors);
}

} // namespace window
