// SPDX-License-Identifier: MIT
// Interfaces of the tableau and its items.
#include "window/tableau/tableau_view.h"

#include "window/controls/painted_item.h"
#include "window/tableau/number_cells.h"

#include <QAccessibleWidget>

namespace window {

namespace {

/// A label, number or badge: text that is named by what it shows.
class TableauItemAccessible : public PaintedItem {
public:
    TableauItemAccessible(TableauView& tableau, int item)
        : PaintedItem(tableau), tableau_(tableau), item_(item) { }

    QAccessible::Role role() const override { return QAccessible::StaticText; }
    QAccessible::State state() const override { return ownerState(); }
    QRect rect() const override { return onScreen(tableau_.itemRect(item_)); }

    QString text(QAccessible::Text type) const override {
        if (type == QAccessible::Name)
            return tableau_.itemText(item_);
        const bool number = item_ >= TableauView::FirstNumber && item_ < TableauView::FirstBadge;
        if (type == QAccessible::Description && number)
            return describe(tableau_.program(), item_ - TableauView::FirstNumber);
        return {};
    }

private:
    TableauView& tableau_;
    int item_;
};

class TableauAccessible : public QAccessibleWidget {
public:
    explicit TableauAccessible(TableauView* tableau)
        : QAccessibleWidget(tableau, QAccessible::Grouping, QStringLiteral("Nummern und Chancen")),
          tableau_(*tableau) {
        for (int item = 0; item < TableauView::ItemCount; ++item)
            items_.add(new TableauItemAccessible(tableau_, item));
    }

    int childCount() const override { return items_.count(); }
    QAccessibleInterface* child(int index) const override { return items_.at(index); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return items_.indexOf(child);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return items_.at(tableau_.itemAt(tableau_.mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override { return nullptr; }

private:
    TableauView& tableau_;
    PaintedItems items_;
};

} // namespace

QAccessibleInterface* tableauAccessible(const QString& /*className*/, QObject* object) {
    auto* tableau = qobject_cast<TableauView*>(object);
    return tableau ? new TableauAccessible(tableau) : nullptr;
}

} // namespace window
