// SPDX-License-Identifier: MIT
// Number pad and tableau as a user meets them: by mouse, by keyboard, through a screen reader.
#include "look/style.h"
#include "support/stage.h"
#include "window/tableau/pad_view.h"
#include "window/tableau/tableau_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>

namespace {

using window::PadView;
using window::TableauView;

/// A program that has been started, with pad and tableau on a panel each.
class CellsTest : public testing::Test {
protected:
    CellsTest() {
        tableau->setGeometry(150, 0, 485, 689);
        panels.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&panels));
        pad->setFocus();
    }

    using Mouse = void (*)(QWidget*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int);
    void mouse(Mouse does, int number, Qt::MouseButton button = Qt::LeftButton) {
        does(pad, button, {}, pad->cellRect(number).center(), -1);
    }
    static void send(QWidget* widget, QEvent::Type type, QPoint at) {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, widget->mapToGlobal(at), button, button, {});
        QApplication::sendEvent(widget, &event);
    }
    static void moveTo(QWidget* widget, QPoint at) { send(widget, QEvent::MouseMove, at); }

    void refresh() {
        pad->refresh();
        tableau->refresh();
    }

    /// The colour of an item's ground, seen in its corner.
    static QColor ground(QWidget* widget, const QRect& place) {
        return widget->grab().toImage().pixelColor(place.topLeft() + QPoint(2, 2));
    }

    support::Stage stage;
    window::Session session{stage.program, stage.platform};
    struct Panels : QWidget {
        Panels() { resize(700, 700); }
    } panels;
    PadView* pad = new PadView(
        session, forms::plan::rowOf(forms::plan::Eingabe, forms::plan::Name::xpFrame, 2), &panels);
    TableauView* tableau = new TableauView(session, &panels);
};

TEST_F(CellsTest, EveryClickEntersOneCoupAndNothingElseDoes) {
    for (int number = 0; number < 37; ++number) {
        mouse(QTest::mouseClick, number);
        EXPECT_EQ(stage.main.Plein, number);
    }
    // The second click of a double click comes as an event of its own kind.
    send(pad, QEvent::MouseButtonDblClick, pad->cellRect(5).center());
    send(pad, QEvent::MouseButtonRelease, pad->cellRect(5).center());
    EXPECT_EQ(stage.main.Coup, 38);
    mouse(QTest::mousePress, 5);
    mouse(QTest::mouseRelease, 8);
    mouse(QTest::mouseClick, 5, Qt::RightButton);
    QTest::mouseClick(pad, Qt::LeftButton, {}, QPoint(1, 1));
    QTest::mouseClick(
        tableau, Qt::LeftButton, {}, tableau->itemRect(TableauView::FirstNumber + 5).center());
    // A run that starts while a cell is held down swallows the click.
    mouse(QTest::mousePress, 5);
    for (const bool enabled : {false, true}) {
        stage.main.Enabled = enabled;
        refresh();
        mouse(QTest::mouseRelease, 5);
    }
    EXPECT_EQ(stage.main.Coup, 38);
}

TEST_F(CellsTest, KeysMoveAndEnter) {
    using Keys = std::vector<Qt::Key>;
    for (const auto& [keys, number] : {std::pair(Keys{Qt::Key_1, Qt::Key_7, Qt::Key_Return}, 17),
             {{Qt::Key_3, Qt::Key_7, Qt::Key_Enter}, 7}, {{Qt::Key_0, Qt::Key_7, Qt::Key_Space}, 7},
             {{Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_Space}, 3},
             {{Qt::Key_2, Qt::Key_Right, Qt::Key_4, Qt::Key_Space}, 4},
             {{Qt::Key_Home, Qt::Key_Down, Qt::Key_Space}, 2},
             {{Qt::Key_3, Qt::Key_Right, Qt::Key_Up, Qt::Key_Up, Qt::Key_Space}, 0},
             {{Qt::Key_End, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up, Qt::Key_Space}, 32}}) {
        stage.reset();
        for (const Qt::Key key : keys)
            QTest::keyClick(pad, key);
        EXPECT_EQ(stage.main.Plein, number);
    }
    QTest::keyClick(pad, Qt::Key_Return, Qt::ControlModifier); // a shortcut of the window
    EXPECT_EQ(stage.main.Coup, 1);
}

TEST_F(CellsTest, PointerAndPressShowInTheCell) {
    const QColor blue(0, 0, 255);
    const QColor cloth(0, 192, 0);
    const QRect red = pad->cellRect(5);
    moveTo(pad, red.center());
    EXPECT_EQ(ground(pad, red), blue);
    pad->clearFocus();
    mouse(QTest::mousePress, 5);
    EXPECT_EQ(ground(pad, red), QColor(255, 0, 0));
    mouse(QTest::mouseRelease, 5);
    mouse(QTest::mouseClick, 4);
    moveTo(pad, pad->cellRect(4).center());
    refresh();
    EXPECT_EQ(ground(pad, red), cloth) << "no longer the last number";

    // Two labels lie over the ends of the zero's wide cell; its middle is under its badge.
    const QPoint end = tableau->itemRect(TableauView::FirstNumber).bottomLeft() + QPoint(2, -1);
    const QRect badge = tableau->itemRect(TableauView::FirstBadge);
    for (const bool over : {true, false}) {
        moveTo(tableau, over ? badge.center() : end);
        EXPECT_EQ(ground(tableau, badge), over ? blue : cloth);
        EXPECT_NE(tableau->grab().toImage().pixelColor(end), blue);
    }
}

TEST_F(CellsTest, EveryCountUpToEightDigitsFits) {
    for (std::size_t number = 0; number < 37; ++number) {
        stage.program.counters.Anz_Plein = {};
        stage.program.counters.Anz_Plein[number] = 88'888'888;
        tableau->refresh();
        for (int item = 0; item < TableauView::ItemCount; ++item)
            EXPECT_FALSE(tableau->isCut(item)) << tableau->itemText(item).toStdString();
    }
}

TEST_F(CellsTest, LabelsThatFaceEachOtherShrinkTogether) {
    const auto look = [this](int item) { return tableau->grab(tableau->itemRect(item)).toImage(); };
    std::vector<QImage> before;
    for (int item = 0; item < TableauView::LabelCount; ++item)
        before.push_back(look(item));
    for (const int count : {88'888'888, 0}) {
        stage.program.counters.Anz_Plein[8] = count;
        tableau->refresh();
        QString changed;
        for (int item = 0; item < TableauView::LabelCount; ++item)
            if (look(item) != before[static_cast<std::size_t>(item)])
                changed += tableau->itemText(item).section(QLatin1Char('='), 0, 0);
        EXPECT_EQ(changed.toStdString(),
            count == 0 ? "" : " Passe Pair Noir Manque 2.K 1.D 3.TVP 2.TVS 7.TVS");
    }
}

TEST_F(CellsTest, AScreenReaderHearsAndPressesTheCells) {
    auto* group = QAccessible::queryAccessibleInterface(pad);
    auto* table = QAccessible::queryAccessibleInterface(tableau);
    ASSERT_TRUE(group && table && group->childCount() == 37);
    ASSERT_EQ(table->childCount(), TableauView::ItemCount);
    auto* seventeen = group->child(17);
    const QPoint middle = seventeen->rect().center();
    EXPECT_EQ(pad->cellAt(pad->mapFromGlobal(middle)), 17);
    EXPECT_EQ(group->childAt(middle.x(), middle.y()), seventeen);
    EXPECT_EQ(group->indexOfChild(seventeen), 17);
    auto* press = seventeen->actionInterface();
    ASSERT_NE(press, nullptr);
    press->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(group->focusChild(), seventeen);
    for (int i = 0; i < 5; ++i) {
        stage.main.Enabled = i < 3;
        EXPECT_EQ(bool(seventeen->state().disabled), i >= 3);
        press->doAction(QAccessibleActionInterface::pressAction());
        QApplication::processEvents();
    }
    EXPECT_EQ(stage.main.Coup, 3);
    stage.main.Enabled = true;
    stage.mark(1, "3");
    refresh();
    for (auto* item : {seventeen, table->child(TableauView::FirstNumber + 17)})
        EXPECT_EQ(item->text(QAccessible::Description).toStdString(),
            "Noir, Impair, Manque, 2. Kolonne, 2. Dutzend, 3 mal gefallen, markiert, letzte Zahl");
    EXPECT_EQ(
        table->child(TableauView::FirstBadge + 17)->text(QAccessible::Name), QStringLiteral("3"));

    // What a screen reader still knows goes with its widget.
    const std::vector<QAccessible::Id> ids{
        QAccessible::uniqueId(seventeen), QAccessible::uniqueId(table->child(5))};
    delete pad;
    delete tableau;
    for (const QAccessible::Id id : ids)
        EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

} // namespace
