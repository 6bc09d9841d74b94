// SPDX-License-Identifier: MIT
// Interfaces of the number pad and its cells.
#include "window/tableau/pad_view.h"

#include "window/controls/painted_item.h"
#include "window/tableau/number_cells.h"

#include <QAccessibleWidget>

namespace window {

namespace {

/// A cell: a button named by its number; pressing it enters the coup.
class PadCellAccessible : public PaintedItem, public QAccessibleActionInterface {
public:
    PadCellAccessible(PadView& pad, int number) : PaintedItem(pad), pad_(pad), number_(number) { }

    QAccessible::Role role() const override { return QAccessible::Button; }
    QRect rect() const override { return onScreen(pad_.cellRect(number_)); }

    QString text(QAccessible::Text type) const override {
        if (type == QAccessible::Name)
            return QString::number(number_);
        return type == QAccessible::Description ? describe(pad_.program(), number_) : QString();
    }

    QAccessible::State state() const override {
        QAccessible::State state = ownerState();
        state.disabled = !pad_.takesInput();
        state.focusable = true;
        state.focused = pad_.hasFocus() && pad_.current() == number_;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override {
        if (!pad_.takesInput())
            return {};
        return {pressAction(), setFocusAction()};
    }
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }
    void doAction(const QString& name) override {
        if (name == pressAction()) {
            // Not before the asker has its answer: a coup that fails opens a message.
            QMetaObject::invokeMethod(
                &pad_, [&pad = pad_, number = number_] { pad.enter(number); },
                Qt::QueuedConnection);
        } else if (name == setFocusAction()) {
            pad_.setCurrent(number_);
            pad_.setFocus(Qt::OtherFocusReason);
        }
    }

private:
    PadView& pad_;
    int number_;
};

class PadAccessible : public QAccessibleWidget {
public:
    explicit PadAccessible(PadView* pad)
        : QAccessibleWidget(pad, QAccessible::Grouping, QStringLiteral("Zahlenfeld")), pad_(*pad) {
        for (int number = 0; number < chances::NumberCount; ++number)
            cells_.add(new PadCellAccessible(pad_, number));
    }

    int childCount() const override { return cells_.count(); }
    QAccessibleInterface* child(int index) const override { return cells_.at(index); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return cells_.indexOf(child);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return cells_.at(pad_.cellAt(pad_.mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override {
        return pad_.hasFocus() ? cells_.at(pad_.current()) : nullptr;
    }

private:
    PadView& pad_;
    PaintedItems cells_;
};

} // namespace

QAccessibleInterface* padAccessible(const QString& /*className*/, QObject* object) {
    auto* pad = qobject_cast<PadView*>(object);
    return pad ? new PadAccessible(pad) : nullptr;
}

} // namespace window
