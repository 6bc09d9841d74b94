// SPDX-License-Identifier: MIT
// The sorted view's rows as the toolkit's own table view wants them.
#pragma once

#include "controls/grid.h"
#include "look/style.h"

#include <QAbstractTableModel>
#include <QBrush>

#include <optional>

namespace bench {

class TableModel : public QAbstractTableModel {
public:
    TableModel(const controls::Grid& grid, int columns) : grid_(grid), columns_(columns) { }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(grid_.RowCount());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : columns_;
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
            return {};
        return look::toText(grid_.Column(section + 1).Caption);
    }
    QVariant data(const QModelIndex& index, int role) const override {
        ++asked_;
        const std::int64_t row = index.row() + 1;
        const int column = index.column() + 1;
        const controls::RowPattern& pattern = grid_.pattern(grid_.patternOf(row));
        if (role == Qt::DisplayRole)
            return column == 1 ? QString::number(row) : look::toText(pattern.Cell(column));
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(column == 1 ? Qt::AlignLeft : Qt::AlignHCenter)
                | static_cast<int>(Qt::AlignVCenter);
        if (const auto color = pattern.CellColor(column); role == Qt::BackgroundRole && color)
            return QBrush(look::toColor(*color));
        return {};
    }

    /// How often a cell was asked for.
    std::int64_t asked() const { return asked_; }

private:
    const controls::Grid& grid_;
    int columns_;
    mutable std::int64_t asked_ = 0;
};

} // namespace bench
