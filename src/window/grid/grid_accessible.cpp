// SPDX-License-Identifier: MIT
// The sorted view for assistive technology: a table whose cells come into being when asked for.
#include "window/grid/grid_accessible.h"

#include "look/style.h"
#include "look/text.h"
#include "window/grid/grid_view.h"

#include <algorithm>
#include <limits>
#include <string>

namespace window {

namespace {

// Enough for several screens of cells; a reader that walks further gets fresh ones.
constexpr qsizetype MaxCells = 4096;

} // namespace

QAccessibleInterface* gridAccessible(const QString& /*className*/, QObject* object) {
    auto* const view = qobject_cast<GridView*>(object);
    return view ? new GridAccessible(view) : nullptr;
}

GridAccessible::GridAccessible(GridView* view) : QAccessibleWidget(view, QAccessible::Table) { }

GridAccessible::~GridAccessible() {
    for (const QAccessible::Id id : std::as_const(cells_))
        QAccessible::deleteAccessibleInterface(id);
}

GridView* GridAccessible::view() const {
    return qobject_cast<GridView*>(object());
}

void* GridAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

int GridAccessible::rowCount() const {
    return view() ? narrowed(view()->grid().RowCount()) : 0;
}

int GridAccessible::columnCount() const {
    return view() ? view()->grid().ColumnCount() : 0;
}

int GridAccessible::childCount() const {
    return view() ? narrowed((view()->grid().RowCount() + 1) * columnCount()) : 0;
}

int GridAccessible::indexOf(std::int64_t row, int column) const {
    const qint64 index = keyOf(row, column);
    return index <= std::numeric_limits<int>::max() ? static_cast<int>(index) : -1;
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const cell = dynamic_cast<const GridCellAccessible*>(child);
    return cell && cell->table() == this ? indexOf(cell->row(), cell->column()) : -1;
}

QAccessibleInterface* GridAccessible::child(int index) const {
    const int columns = columnCount();
    return index < 0 || columns == 0 ? nullptr : cell(index / columns - 1, index % columns);
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const {
    if (!view())
        return nullptr;
    const GridView::Place place = view()->placeAt(view()->viewport()->mapFromGlobal(QPoint(x, y)));
    return place.column > 0 ? cell(place.row, place.column - 1) : nullptr;
}

QAccessibleInterface* GridAccessible::cellAt(int row, int column) const {
    return row < 0 ? nullptr : cell(row, column);
}

QAccessibleInterface* GridAccessible::cell(std::int64_t row, int column) const {
    if (!view() || column < 0 || column >= columnCount() || row >= view()->grid().RowCount())
        return nullptr;
    const qint64 key = keyOf(row, column);
    if (const auto found = cells_.constFind(key); found != cells_.cend())
        return QAccessible::accessibleInterface(*found);
    if (cells_.size() >= MaxCells)
        QAccessible::deleteAccessibleInterface(cells_.take(order_.dequeue()));
    auto* const made = new GridCellAccessible(view(), row, column);
    cells_.insert(key, QAccessible::registerAccessibleInterface(made));
    order_.enqueue(key);
    return made;
}

QString GridAccessible::rowDescription(int row) const {
    const auto* const head = cellAt(row, 0);
    return head ? head->text(QAccessible::Name) : QString();
}

QString GridAccessible::columnDescription(int column) const {
    const auto* const head = cell(-1, column);
    return head ? head->text(QAccessible::Name) : QString();
}

GridCellAccessible::GridCellAccessible(GridView* view, std::int64_t row, int column)
    : view_(view), row_(row), column_(column) { }

bool GridCellAccessible::isValid() const {
    return view_ && row_ < view_->grid().RowCount() && column_ < view_->grid().ColumnCount();
}

QWindow* GridCellAccessible::window() const {
    const auto* const table = parent();
    return table ? table->window() : nullptr;
}

GridAccessible* GridCellAccessible::grid() const {
    return view_ ? dynamic_cast<GridAccessible*>(QAccessible::queryAccessibleInterface(view_))
                 : nullptr;
}

QAccessibleInterface* GridCellAccessible::parent() const {
    return view_ ? QAccessible::queryAccessibleInterface(view_) : nullptr;
}

QString GridCellAccessible::text(QAccessible::Text kind) const {
    if (!isValid() || (kind != QAccessible::Name && kind != QAccessible::Value))
        return {};
    const controls::Grid& grid = view_->grid();
    return row_ < 0 ? look::toText(grid.Column(column_ + 1).Caption)
                    : look::toText(grid.Row(row_ + 1).Cell(column_ + 1));
}

QRect GridCellAccessible::rect() const {
    if (!isValid())
        return {};
    const QRect inside = view_->cellRect(row_, column_ + 1);
    if (inside.isNull())
        return {};
    return {view_->viewport()->mapToGlobal(inside.topLeft()), inside.size()};
}

QAccessible::Role GridCellAccessible::role() const {
    return row_ < 0 ? QAccessible::ColumnHeader : QAccessible::Cell;
}

QAccessible::State GridCellAccessible::state() const {
    QAccessible::State state;
    state.readOnly = true;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.disabled = !view_->isEnabled();
    state.invisible = !view_->isVisible();
    state.offscreen = view_->cellRect(row_, column_ + 1).isNull();
    return state;
}

void* GridCellAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableCellInterface
        ? static_cast<QAccessibleTableCellInterface*>(this)
        : nullptr;
}

QList<QAccessibleInterface*> GridCellAccessible::columnHeaderCells() const {
    const GridAccessible* const table = grid();
    auto* const head = table ? table->cell(-1, column_) : nullptr;
    return head ? QList<QAccessibleInterface*>{head} : QList<QAccessibleInterface*>{};
}

QList<QAccessibleInterface*> GridCellAccessible::rowHeaderCells() const {
    const GridAccessible* const table = grid();
    auto* const head = table && row_ >= 0 ? table->cell(row_, 0) : nullptr;
    return head ? QList<QAccessibleInterface*>{head} : QList<QAccessibleInterface*>{};
}

} // namespace window
