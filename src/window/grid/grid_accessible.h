// SPDX-License-Identifier: MIT
// The sorted view for assistive technology: a table whose cells come into being when asked for.
#pragma once

#include <QAccessibleInterface>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <QQueue>

#include <cstdint>

namespace window {

class GridView;

/// A factory for QAccessible::installFactory; it serves GridView only.
QAccessibleInterface* gridAccessible(const QString& className, QObject* object);

/// A table of all columns and rows of the grid. Its children are the header's cells, then the
/// cells row by row; they are worked out from their number, never listed, and only the ones that
/// were asked for last are kept. Numbers beyond 32 bits are out of the interface's reach.
class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccessible(GridView* view);
    ~GridAccessible() override;

    void* interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override { return nullptr; }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int rowCount() const override;
    int columnCount() const override;
    QString rowDescription(int row) const override;
    QString columnDescription(int column) const override;
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override { }

    // Nothing can be selected.
    int selectedCellCount() const override { return 0; }
    QList<QAccessibleInterface*> selectedCells() const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int /*row*/) const override { return false; }
    bool selectRow(int /*row*/) override { return false; }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }

    /// The cell of row -1 (the header) on and column 0 on, or null if there is none.
    QAccessibleInterface* cell(std::int64_t row, int column) const;
    /// The place of a cell among the children, or -1 if it is beyond the interface's numbers.
    int indexOf(std::int64_t row, int column) const;

private:
    GridView* view() const;
    qint64 keyOf(std::int64_t row, int column) const { return (row + 1) * columnCount() + column; }

    mutable QHash<qint64, QAccessible::Id> cells_; // by place among the children
    mutable QQueue<qint64> order_; // oldest first
};

/// A cell of the table, or of its header (row -1).
class GridCellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    GridCellAccessible(GridView* view, std::int64_t row, int column);

    std::int64_t row() const { return row_; }
    int column() const { return column_; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override { }
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override { return false; }
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    int columnIndex() const override { return column_; }
    int rowIndex() const override { return static_cast<int>(row_); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

private:
    GridAccessible* grid() const;

    QPointer<GridView> view_;
    std::int64_t row_;
    int column_;
};

} // namespace window
