// SPDX-License-Identifier: MIT
// The number pad, on which coups are entered by mouse or keyboard.
#pragma once

#include "chances/chancentabelle.h"
#include "controls/models.h"
#include "window/controls/session.h"
#include "window/tableau/number_cells.h"

#include <QAccessible>
#include <QWidget>

#include <array>
#include <cstdint>

namespace window {

/// The 37 cells of the pad, painted from the model. A click on a cell, and every further one of a
/// double click, enters a coup. The pad is one stop of the tab order: arrow keys, Home, End and
/// digits move its current cell, Space and Enter enter the cell's number.
class PadView final : public QWidget, public View {
    Q_OBJECT

public:
    /// Takes its place within the panel.
    PadView(const Session& session, const forms::plan::Control& control, QWidget* panel);

    void refresh() override;

    /// The cell that the keyboard is at, 0 to 36.
    int current() const { return current_; }
    /// Moves the keyboard's cell.
    void setCurrent(int number);
    /// Enters a coup, as a click on the cell does. A disabled form takes none.
    void enter(int number);
    /// Takes a digit typed anywhere in the window, and the focus with it; false for other keys.
    bool takeDigit(const QKeyEvent& event);
    /// Where a cell stands, in pixels within the pad.
    QRect cellRect(int number) const { return cells_[static_cast<std::size_t>(number)].place; }
    /// The cell at a point, -1 for none.
    int cellAt(const QPoint& point) const;
    bool takesInput() const;
    const forms::Program& program() const { return session_.program; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// A cell as it was drawn and announced last.
    struct Cell {
        QRect place;
        Digits digits;
        controls::CellColors colors;
        std::int64_t count = 0;
    };
    struct Look {
        QColor fore;
        QColor back;
    };

    Look look(int number) const;
    void drawCell(QPainter& painter, int number) const;
    void drawFocus(QPainter& painter) const;
    void updateCell(int number);
    void setHovered(int number);
    void setPressed(int number, bool byMouse);
    bool takes(const QKeyEvent& event) const;
    void moveBy(int key);
    void typeDigit(int digit);
    void release();
    void tell(QAccessible::Event type, int number);
    void tellChanges();
    void tellFocus();

    Session session_;
    std::array<Cell, chances::NumberCount> cells_;
    chances::NumberSet untold_ = 0; ///< changed since the last announcement
    int current_ = 0;
    int hovered_ = -1; ///< under the pointer
    int pressed_ = -1; ///< held down by mouse or key
    bool byMouse_ = false;
    int firstDigit_ = 0; ///< of a number being typed; 0 while a digit starts a number
};

/// What a screen reader meets of a PadView: a group of 37 buttons; null for any other object. A
/// factory for QAccessible.
QAccessibleInterface* padAccessible(const QString& className, QObject* object);

} // namespace window
