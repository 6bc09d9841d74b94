// SPDX-License-Identifier: MIT
// Parts of a widget that are painted rather than widgets of their own, as a screen reader meets
// them: the part, and the list that a widget's interface keeps of its parts.
#pragma once

#include <QAccessibleInterface>
#include <QWidget>
#include <QWindow>

#include <vector>

namespace window {

/// One painted part of a widget: no object of its own, no children.
class PaintedItem : public QAccessibleInterface {
public:
    explicit PaintedItem(QWidget& owner) : owner_(owner) { }

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return owner_.window()->windowHandle(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&owner_);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    void setText(QAccessible::Text /*which*/, const QString& /*text*/) override { }

protected:
    QRect onScreen(const QRect& place) const {
        return {owner_.mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::State ownerState() const {
        QAccessible::State state;
        state.disabled = !owner_.isEnabled();
        state.invisible = !owner_.isVisible();
        return state;
    }

private:
    QWidget& owner_;
};

/// The parts of one widget. They live as long as the widget's own interface.
class PaintedItems {
public:
    PaintedItems() = default;
    PaintedItems(const PaintedItems&) = delete;
    PaintedItems& operator=(const PaintedItems&) = delete;
    ~PaintedItems() {
        for (const QAccessible::Id id : ids_)
            QAccessible::deleteAccessibleInterface(id);
    }

    /// Takes the part over.
    void add(QAccessibleInterface* item) {
        ids_.push_back(QAccessible::registerAccessibleInterface(item));
    }
    int count() const { return static_cast<int>(ids_.size()); }
    /// Null for an index out of range.
    QAccessibleInterface* at(int index) const {
        if (index < 0 || index >= count())
            return nullptr;
        return QAccessible::accessibleInterface(ids_[static_cast<std::size_t>(index)]);
    }
    int indexOf(const QAccessibleInterface* item) const {
        for (int index = 0; index < count(); ++index)
            if (at(index) == item)
                return index;
        return -1;
    }

private:
    std::vector<QAccessible::Id> ids_;
};

} // namespace window
