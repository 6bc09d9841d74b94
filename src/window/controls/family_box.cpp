// SPDX-License-Identifier: MIT
// Brings the drop-down list in line with its model and draws the chosen entry so that it fits.
#include "window/controls/family_box.h"

#include "forms/plan.h"
#include "look/style.h"
#include "look/text.h"
#include "shell/handlers.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

namespace window {

FamilyBox::FamilyBox(const Session& session, const forms::plan::Control& control, QWidget* parent)
    : QComboBox(parent), session_(session), index_(static_cast<std::size_t>(control.index)) {
    look::applyRow(control, *this);
    view()->setAccessibleName(look::toText(control.spoken));
    connect(this, &QComboBox::activated, this, &FamilyBox::choose);
}

const controls::Combo& FamilyBox::model() const {
    return session_.program.Frm_Main.xpCombo[index_];
}

void FamilyBox::choose(int entry) {
    Frm_Main::xpCombo_Click(session_.program, session_.platform, entry);
    refresh();
}

void FamilyBox::refresh() {
    const QSignalBlocker quiet(this);
    // Entries are only ever added.
    for (auto i = static_cast<std::size_t>(count()); i < model().Items.size(); ++i)
        addItem(look::toText(model().Items[i]));
    if (currentIndex() != model().ListIndex)
        setCurrentIndex(model().ListIndex);
}

void FamilyBox::keyPressEvent(QKeyEvent* event) {
    // The toolkit would look for an entry that begins with the digit.
    if (event->key() >= Qt::Key_0 && event->key() <= Qt::Key_9)
        event->ignore();
    else
        QComboBox::keyPressEvent(event);
}

void FamilyBox::wheelEvent(QWheelEvent* event) {
    event->ignore(); // the window may scroll instead
}

void FamilyBox::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect room
        = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    const look::Fit fit = look::fitted(font(), option.currentText, room.width() - 2);
    option.currentText = fit.text;
    painter.setFont(fit.font);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

} // namespace window
