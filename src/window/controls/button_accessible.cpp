// SPDX-License-Identifier: MIT
// Interfaces of buttons and check boxes: the whole control is the button, and every press counts.
#include "window/controls/buttons.h"

#include <QAccessibleWidget>
#include <QKeySequence>

namespace window {

namespace {

/// The toolkit's own interface swallows a press that follows another one quickly, ticks a check box
/// past its handler and reports only the part of a check box's place that its text covers.
class ButtonAccessible : public QAccessibleWidget {
public:
    ButtonAccessible(QAbstractButton* button, QAccessible::Role role)
        : QAccessibleWidget(button, role, button->text().remove(u'&')), button_(*button) { }

    QString text(QAccessible::Text type) const override {
        if (type == QAccessible::Accelerator)
            return button_.shortcut().toString(QKeySequence::NativeText);
        const QString told = QAccessibleWidget::text(type);
        return told.isEmpty() && type == QAccessible::Description ? button_.toolTip() : told;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button_.isCheckable();
        state.checked = button_.isChecked();
        state.pressed = button_.isDown();
        return state;
    }

    QStringList actionNames() const override {
        if (!button_.isEnabled())
            return {};
        return {clickAction(), setFocusAction()};
    }

    void doAction(const QString& name) override {
        if (name != clickAction())
            return QAccessibleWidget::doAction(name);
        // Not before the asker has its answer: a click may open a dialog or start a long run.
        QMetaObject::invokeMethod(&button_, &QAbstractButton::click, Qt::QueuedConnection);
    }

    QStringList keyBindingsForAction(const QString& name) const override {
        if (name != clickAction() || button_.shortcut().isEmpty())
            return {};
        return {button_.shortcut().toString(QKeySequence::NativeText)};
    }

private:
    const QString& clickAction() const {
        return button_.isCheckable() ? toggleAction() : pressAction();
    }

    QAbstractButton& button_;
};

} // namespace

QAccessibleInterface* buttonAccessible(const QString& /*className*/, QObject* object) {
    if (auto* button = qobject_cast<CommandButton*>(object))
        return new ButtonAccessible(button, QAccessible::Button);
    if (auto* box = qobject_cast<CheckView*>(object))
        return new ButtonAccessible(box, QAccessible::CheckBox);
    return nullptr;
}

} // namespace window
