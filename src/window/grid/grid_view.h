// SPDX-License-Identifier: MIT
// The sorted view on screen: a read-only grid that scrolls by rows.
#pragma once

#include "forms/plan.h"
#include "window/controls/session.h"
#include "window/grid/grid_layout.h"
#include "window/grid/grid_painter.h"

#include <QAbstractScrollArea>

#include <cstdint>
#include <vector>

namespace window {

/// Shows a grid's header and as many rows as there is room for. It keeps nothing per row and counts
/// in rows, never in pixels, so every action costs the same however many rows there are. Rows of
/// this class count from 0, columns from 1 like the model's.
class GridView final : public QAbstractScrollArea, public View {
    Q_OBJECT

public:
    /// Takes its place in `parent`; its width follows the model.
    GridView(const controls::Grid& grid, const forms::plan::Control& control, QWidget* parent);

    /// Takes over place, layout, rows and a request to scroll, and repaints what has changed.
    void refresh() override;

    const controls::Grid& grid() const { return grid_; }
    const GridLayout& shownColumns() const { return layout_; }
    /// The first row in view.
    std::int64_t top() const { return top_; }
    /// How many rows are in view as a whole; at least 1.
    int fullRows() const;
    /// Brings `row` to the top, or as near to it as the last row allows.
    void scrollTo(std::int64_t row);

    /// A cell's place in the viewport, or a null rectangle if it isn't in view. Row -1 is the
    /// header.
    QRect cellRect(std::int64_t row, int column) const;
    /// The row (-1: the header) and column at a point of the viewport; column 0 if there is none.
    struct Place {
        std::int64_t row = -1;
        int column = 0;
    };
    Place placeAt(const QPoint& point) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    /// What is on screen, to be compared with the model.
    struct Shown {
        std::int64_t top = 0;
        std::int64_t rows = 0;
        std::uint64_t generation = 0;
        std::vector<controls::PatternId> patterns; ///< of the rows in view
    };

    void adoptLayout(int width);
    void followRequest();
    void adoptScrollBar();
    void repaintChanges();
    void announce(std::int64_t rowsBefore, bool contentChanged) const;
    void stepBar(int action);
    std::int64_t lastTop() const;
    Shown look() const;
    QRect rowRect(int index) const;

    const controls::Grid& grid_;
    controls::Rect planned_;
    GridLayout layout_;
    GridPainter painter_;
    RowScale scale_;
    Shown shown_;
    std::int64_t top_ = 0;
    std::uint64_t requests_ = 0; // scroll requests seen so far
    int wheelRest_ = 0; // turned, but not yet a whole row
};

} // namespace window
