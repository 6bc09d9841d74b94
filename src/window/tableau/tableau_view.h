// SPDX-License-Identifier: MIT
// The tableau with its numbers, count badges and counter labels.
#pragma once

#include "chances/chancentabelle.h"
#include "controls/models.h"
#include "look/text.h"
#include "window/controls/session.h"
#include "window/tableau/number_cells.h"

#include <QRegion>
#include <QWidget>

#include <array>

class QAccessibleInterface;

namespace window {

/// Everything painted on the panel "Tableau", in one widget over the whole panel; it is see-through
/// where the tableau doesn't reach. Labels, numbers and badges are its items, known by one index:
/// first the labels in the plan's order, then the 37 numbers, then their 37 badges. A number turns
/// blue under the pointer; nothing here takes clicks.
class TableauView final : public QWidget, public View {
    Q_OBJECT

public:
    static constexpr int LabelCount = static_cast<int>(forms::plan::CounterLabels.size());
    static constexpr int FirstNumber = LabelCount;
    static constexpr int FirstBadge = FirstNumber + chances::NumberCount;
    static constexpr int ItemCount = FirstBadge + chances::NumberCount;

    /// Covers the panel.
    TableauView(const Session& session, QWidget* panel);

    void refresh() override;

    /// What an item shows: a caption to the letter, a number or a count.
    QString itemText(int item) const;
    /// Whether an item's text is drawn with an ellipsis, because nothing else made it fit.
    bool isCut(int item) const;
    /// Where an item stands in pixels within the panel.
    QRect itemRect(int item) const;
    /// The item at a point, -1 for none. Badges let the pointer through to their numbers.
    int itemAt(const QPoint& point) const;
    const forms::Program& program() const { return session_.program; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    /// A counter label as it was drawn last. Square labels show their count on a second line.
    struct Label {
        const forms::plan::GradientLabel* plan = nullptr;
        const Label* opposite = nullptr; ///< drawn in the same font; itself for most
        QRect place;
        QRect room; ///< of the text
        QString caption;
        look::Fit first;
        look::Fit second;
    };
    /// A number with its badge as it was drawn last.
    struct Cell {
        QRect place;
        QRect badge;
        controls::CellColors colors;
        QString count;
        controls::Color countColor = 0;
        look::Fit fit; ///< of the count
        Digits digits;
        Digits countDigits;
    };

    void refreshLabel(int index);
    void refreshCell(int number);
    static void drawLabel(QPainter& painter, const Label& label);
    void drawCell(QPainter& painter, int number) const;
    void setHovered(int number);
    void tellChanges();

    Session session_;
    std::array<Label, forms::plan::CounterLabels.size()> labels_;
    std::array<Cell, chances::NumberCount> cells_;
    QRegion covered_; ///< by labels and numbers
    std::array<bool, ItemCount> untold_{}; ///< changed since the last announcement
    int hovered_ = -1; ///< number under the pointer
};

/// What a screen reader meets of a TableauView: a group of labels; null for any other object. A
/// factory for QAccessible.
QAccessibleInterface* tableauAccessible(const QString& className, QObject* object);

} // namespace window
