// SPDX-License-Identifier: MIT
// Interfaces of the selector: the box, its list and the list's entries.
#include "window/controls/family_box.h"

#include "window/controls/painted_item.h"
#include "window/controls/shown_text.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>

namespace window {

namespace {

/// An entry of the list: pressing it chooses it, whether the list is open or not.
class EntryAccessible : public PaintedItem, public QAccessibleActionInterface {
public:
    EntryAccessible(FamilyBox& box, int entry)
        : PaintedItem(*box.view()), box_(box), list_(*box.view()), entry_(entry) { }

    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QRect rect() const override {
        return onScreen(list_.visualRect(list_.model()->index(entry_, 0)));
    }
    QString text(QAccessible::Text type) const override {
        return type == QAccessible::Name ? box_.itemText(entry_) : QString();
    }
    QAccessible::State state() const override {
        QAccessible::State state = ownerState();
        state.disabled = !box_.isEnabled();
        state.selectable = true;
        state.selected = box_.currentIndex() == entry_;
        state.focusable = true;
        state.focused = list_.hasFocus() && list_.currentIndex().row() == entry_;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override {
        if (!box_.isEnabled())
            return {};
        return {pressAction()};
    }
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }
    void doAction(const QString& name) override {
        if (name != pressAction())
            return;
        // A re-sort may take long.
        const auto choose = [&box = box_, entry = entry_] {
            box.hidePopup();
            box.choose(entry);
        };
        QMetaObject::invokeMethod(&box_, choose, Qt::QueuedConnection);
    }

private:
    FamilyBox& box_;
    QAbstractItemView& list_;
    int entry_;
};

/// The toolkit's own list only selects an entry, which chooses nothing.
class ListAccessible : public QAccessibleWidget {
public:
    explicit ListAccessible(FamilyBox& box)
        : QAccessibleWidget(box.view(), QAccessible::List), box_(box) { }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.disabled = !box_.isEnabled();
        return state;
    }
    QStringList actionNames() const override {
        return box_.isEnabled() ? QAccessibleWidget::actionNames() : QStringList();
    }

    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&box_);
    }
    int childCount() const override { return entries().count(); }
    QAccessibleInterface* child(int index) const override { return entries().at(index); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return entries().indexOf(child);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint point = box_.view()->viewport()->mapFromGlobal(QPoint(x, y));
        return entries().at(box_.view()->indexAt(point).row());
    }
    QAccessibleInterface* focusChild() const override {
        return box_.view()->hasFocus() ? entries().at(box_.view()->currentIndex().row()) : nullptr;
    }

private:
    const PaintedItems& entries() const {
        while (entries_.count() < box_.count())
            entries_.add(new EntryAccessible(box_, entries_.count()));
        return entries_;
    }

    FamilyBox& box_;
    mutable PaintedItems entries_; // come into being with the box's own
};

/// The toolkit's own interface reports the chosen entry in place of the name.
class FamilyAccessible : public QAccessibleWidget, public ShownText {
public:
    explicit FamilyAccessible(FamilyBox* box)
        : QAccessibleWidget(box, QAccessible::ComboBox), box_(*box) { }

    QString text(QAccessible::Text type) const override {
        return type == QAccessible::Value ? shown() : QAccessibleWidget::text(type);
    }
    QString text(int start, int end) const override { return ShownText::text(start, end); }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = box_.view()->isVisible();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }
    QStringList actionNames() const override {
        if (!box_.isEnabled())
            return {};
        return {showMenuAction(), pressAction(), setFocusAction()};
    }
    void doAction(const QString& name) override {
        if (name != showMenuAction() && name != pressAction())
            return QAccessibleWidget::doAction(name);
        const auto turn = [&box = box_] {
            if (box.view()->isVisible())
                box.hidePopup();
            else if (box.isEnabled())
                box.showPopup();
        };
        QMetaObject::invokeMethod(&box_, turn, Qt::QueuedConnection);
    }

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(box_.view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == box_.view() ? 0 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        QAccessibleInterface* list = child(0);
        return box_.view()->isVisible() && list->rect().contains(x, y) ? list : nullptr;
    }

protected:
    QString shown() const override { return box_.currentText(); }
    QRect place() const override { return rect(); }

private:
    FamilyBox& box_;
};

} // namespace

QAccessibleInterface* familyAccessible(const QString& /*className*/, QObject* object) {
    if (auto* box = qobject_cast<FamilyBox*>(object))
        return new FamilyAccessible(box);
    // A list stands in a container of its own, which belongs to the box.
    auto* container = qobject_cast<QAbstractItemView*>(object) ? object->parent() : nullptr;
    auto* owner = container ? qobject_cast<FamilyBox*>(container->parent()) : nullptr;
    return owner && owner->view() == object ? new ListAccessible(*owner) : nullptr;
}

} // namespace window
