// SPDX-License-Identifier: MIT
// The main window as its user meets it: places, keys, wheel, and what it refuses during a run.
#include "look/style.h"
#include "look/text.h"
#include "stats/counters.h"
#include "support/places.h"
#include "support/stage.h"
#include "window/forms/main_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <random>

namespace {

namespace plan = forms::plan;
using plan::Name;

class MainWindowTest : public testing::Test {
protected:
    MainWindowTest() {
        stage.clock.midnight = [] { return 1.0; };
        main.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&main));
    }

    template <class Widget = QWidget>
    Widget* find(Name name, int index) {
        return support::find<Widget>(main, name, index);
    }
    void focus(Name name, int index) { find(name, index)->setFocus(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(main.focusWidget() ? main.focusWidget() : &main, key, modifiers);
        main.refresh();
    }
    void askFor(QAccessibleInterface& node) {
        node.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(stage.dialogs.asked.empty()) << "the asker has its answer first";
        QApplication::processEvents();
        main.refresh();
    }
    QString focused() const { return main.focusWidget() ? main.focusWidget()->objectName() : ""; }

    support::Stage stage;
    window::MainWindow main{window::Session{stage.program, stage.platform}};
    QLineEdit& count = *find<QLineEdit>(Name::Text, 0);
};

TEST_F(MainWindowTest, ControlsStandWhereThePlanPutsThem) {
    const auto* area = main.findChild<QScrollArea*>();
    EXPECT_EQ(area->widget()->size(), QSize(1016, 714));
    // The screen of these tests is smaller than the window.
    EXPECT_TRUE(main.screen()->availableGeometry().contains(main.frameGeometry()));
    for (const plan::Control& panel : plan::Panels)
        EXPECT_EQ(find(panel.name, panel.index)->geometry(), look::toPixels(panel.place));
    support::expectPlaces(main, plan::Eingabe);
    support::expectPlaces(main, plan::Sortierung);
    support::expectPlaces(main, plan::Tableau);
    const std::array behind{
        find(Name::Text, 1), find(Name::Text, 2), find(Name::xpButton, 4), find(Name::xpButton, 5)};
    for (int i = 0; i < 4; ++i)
        EXPECT_LT(
            find(Name::Label, i)->geometry().right(), behind[static_cast<std::size_t>(i)]->x());
}

// What was painted piece by piece while the program changed is what a fresh painting shows.
TEST_F(MainWindowTest, RepaintsAllThatDiffersAfterAnyHistory) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto below = [&](std::size_t end) { return static_cast<int>(random() % end); };
    auto& grid = *find<QAbstractScrollArea>(Name::Grid, 0);
    focus(Name::xpFrame, 2);
    for (int step = 0; step < 150; ++step) {
        const int action = below(8);
        if (action == 0)
            stage.button(std::array{0, 4, 5}[random() % 3]);
        else if (action == 1)
            below(9) == 0 ? stage.reset() : stage.mark(1 + below(2), "1");
        else if (action == 2)
            below(2) == 0 ? stage.check(below(2))
                          : stage.family(below(stage.main.xpCombo[0].Items.size()));
        else if (action == 3)
            grid.verticalScrollBar()->setValue(below(200));
        else
            for (int left = below(9); left >= 0; --left)
                stage.click(below(37));
        main.refresh();
        QCoreApplication::processEvents();
        const auto picture
            = [](const QPixmap& seen) { return seen.toImage().convertedTo(QImage::Format_RGB32); };
        const QImage screen = picture(main.screen()->grabWindow(main.winId()));
        ASSERT_EQ(screen, picture(main.grab()).copy(screen.rect()))
            << "step " << step << ", action " << action;
    }
}

TEST_F(MainWindowTest, AltRTakesBackAndNeverClears) {
    for (const int number : {1, 2, 3})
        stage.click(number);
    press(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.main.Coup == 2; }, 20000));
    press(Qt::Key_Z, Qt::ControlModifier);
    focus(Name::Text, 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stage.main.Coup, 0);
    stage.click(7);
    focus(Name::Text, 0);
    QTest::keyClicks(&count, "12");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stage.main.Coup, 1) << "the text box takes back its own typing";
    EXPECT_NE(count.text().toStdString(), "12");
    count.setText(QStringLiteral("2"));
    press(Qt::Key_Return);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stage.main.Coup, 2) << "behind a series the key means the coups";
    focus(Name::xpFrame, 2);
    QTest::mouseClick(&count, Qt::LeftButton);
    press(Qt::Key_9);
    EXPECT_EQ(count.text().toStdString(), "9") << "a new count replaces the old";
}

TEST_F(MainWindowTest, TheHandStaysOnThePad) {
    focus(Name::xpFrame, 2);
    for (const auto& [name, index] : {std::pair(Name::xpButton, 0), {Name::Check, 0},
             {Name::xpCombo, 0}, {Name::Grid, 0}, {Name::Text, 1}}) {
        if (name == Name::xpButton || name == Name::Check)
            QTest::mouseClick(find(name, index), Qt::LeftButton);
        else
            focus(name, index);
        const bool stays = focused() == QStringLiteral("xpFrame(2)");
        EXPECT_EQ(stays, name == Name::xpButton || name == Name::Check) << focused().toStdString();
        const auto before = stage.main.Coup;
        press(Qt::Key_1);
        press(Qt::Key_7, Qt::KeypadModifier);
        press(Qt::Key_Return);
        EXPECT_EQ(stage.main.Coup, before + 1) << look::controlName(name, index).toStdString();
        EXPECT_EQ(M_Chancen::Anz_Plein(stage.program, 17), stage.main.Coup);
    }
}

TEST_F(MainWindowTest, NoFontOfTheDesktopTakesHold) {
    const QFont large(QStringLiteral("Sans"), 30);
    QApplication::setFont(large);
    EXPECT_EQ(find(Name::xpButton, 0)->font(), look::toFont({}));
    EXPECT_EQ(main.menuBar()->font(), look::toFont({}));
}

TEST_F(MainWindowTest, AHeldKeyIsOnePress) {
    const auto hold = [](QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        for (const bool repeat : {false, true, true, true})
            QTest::simulateEvent(&widget, true, key, modifiers, {}, repeat);
        QTest::simulateEvent(&widget, false, key, modifiers, {}, false);
    };
    auto& pad = *find(Name::xpFrame, 2);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        hold(pad, key);
    EXPECT_EQ(stage.main.Coup, 3);
    count.setText(QStringLiteral("9"));
    hold(count, Qt::Key_Return);
    EXPECT_EQ(stage.main.Coup, 12);
    for (const auto modifier : {Qt::AltModifier, Qt::ControlModifier})
        hold(pad, modifier == Qt::AltModifier ? Qt::Key_R : Qt::Key_Z, modifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.main.Coup == 10; })) << stage.main.Coup;
    hold(*find(Name::xpButton, 0), Qt::Key_Return);
    EXPECT_EQ(stage.main.Coup, 9);
    hold(*find(Name::xpButton, 2), Qt::Key_Enter);
    hold(*find(Name::Text, 1), Qt::Key_Space);
    hold(pad, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(stage.dialogs.asked.size(), 3U);

    // As a slow toolkit sees it: repeats without their mark, each at the moment of a release.
    for (const quint64 time : {0U, 1U, 2U, 3U}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, {});
        press.setTimestamp(1000 + 30 * time);
        QApplication::sendEvent(&pad, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Space, {});
        release.setTimestamp(1000 + 30 * (time + 1));
        QApplication::sendEvent(&pad, &release);
    }
    EXPECT_EQ(stage.main.Coup, 10);
    // What scrolls and types goes on.
    auto* grid = find<QAbstractScrollArea>(Name::Grid, 0);
    for (int i = 0; i < 200; ++i)
        stage.click(5);
    main.refresh();
    const auto* bar = grid->verticalScrollBar();
    const int before = bar->value();
    hold(*grid, Qt::Key_Up);
    EXPECT_EQ(bar->value(), before - 4);
    count.setFocus();
    count.clear();
    for (const bool repeat : {false, true, true})
        QTest::simulateEvent(&count, true, Qt::Key_7, {}, QStringLiteral("7"), repeat);
    EXPECT_EQ(count.text().toStdString(), "777");
}

TEST_F(MainWindowTest, NoExceptionLeavesAnEventHandler) {
    struct Starved : QObject {
        bool event(QEvent* /*event*/) override { throw std::bad_alloc(); }
    } starved;
    QEvent any(QEvent::User);
    EXPECT_NO_THROW(QApplication::sendEvent(&starved, &any));
}

TEST_F(MainWindowTest, CountBoxFiltersTypedCharactersOnly) {
    focus(Name::Text, 0);
    for (const QChar typed : QStringLiteral("1a 2-,.3ä€\u200C\uF8FF")) {
        QKeyEvent key(QEvent::KeyPress, 0, {}, QString(typed));
        QApplication::sendEvent(&count, &key);
    }
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("é4"));
    QApplication::sendEvent(&count, &composed);
    EXPECT_EQ(count.text().toStdString(), "1234");
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Delete})
        press(key);
    EXPECT_EQ(stage.main.Text[0].Text, "23");
    QApplication::clipboard()->setText(QStringLiteral("5 Coups"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    EXPECT_EQ(stage.main.Coup, 10);
    EXPECT_EQ(count.text().toStdString(), "5 Coups");
}

TEST_F(MainWindowTest, AScreenReadersPressDoesItsWork) {
    auto& box = *QAccessible::queryAccessibleInterface(find(Name::Text, 2));
    stage.dialogs.answer = "3";
    askFor(box);
    EXPECT_EQ(stage.dialogs.asked.size(), 1U);
    stage.dialogs.asked.clear();
    EXPECT_EQ(box.textInterface()->text(0, 9).toStdString(), "3");
    count.setText(QStringLiteral("2"));
    askFor(*QAccessible::queryAccessibleInterface(&count));
    EXPECT_EQ(stage.main.Coup, 2);
    auto& families = *QAccessible::queryAccessibleInterface(find(Name::xpCombo, 0));
    auto& entry = *families.child(0)->child(3);
    for (const bool open : {false, true}) {
        stage.main.Enabled = open;
        askFor(entry);
        askFor(box);
        EXPECT_EQ(stage.main.xpCombo[0].ListIndex, open ? 3 : 0);
        EXPECT_EQ(stage.dialogs.asked.size(), open ? 1U : 0U);
    }
    EXPECT_EQ(families.text(QAccessible::Name).toStdString(), "Sortierung");
    EXPECT_EQ(families.textInterface()->text(0, 99).toStdString(), "Kolonnen");
    EXPECT_TRUE(entry.state().selected);
}

TEST_F(MainWindowTest, TheWheelNeverChoosesAFamily) {
    auto& box = *find<QComboBox>(Name::xpCombo, 0);
    box.setFocus();
    for (const int turn : {-120, 120, -1200}) {
        QWheelEvent wheel(QPointF(5, 5), box.mapToGlobal(QPointF(5, 5)), {}, {0, turn},
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&box, &wheel);
    }
    EXPECT_EQ(stage.main.xpCombo[0].ListIndex, 0);
    for (const bool refused : {false, true}) { // a choice that is refused leaves no trace
        stage.main.inHandler = refused;
        press(Qt::Key_Down);
        EXPECT_EQ(stage.main.xpCombo[0].ListIndex, 1);
        EXPECT_EQ(box.currentText().toStdString(), "Pair/Impair");
    }
    stage.main.inHandler = false;
}

TEST_F(MainWindowTest, DuringARunNothingGetsIn) {
    stage.click(8);
    focus(Name::Text, 0);
    QTest::keyClicks(&count, "20000");
    int turns = 0;
    stage.events.onTurn = [&] {
        main.refresh();
        if (++turns != 1)
            return;
        const auto state = support::state(stage.program);
        for (auto* button : main.findChildren<QAbstractButton*>()) {
            button->click();
            if (auto* spoken = QAccessible::queryAccessibleInterface(button))
                if (auto* actions = spoken->actionInterface())
                    actions->doAction(QAccessibleActionInterface::pressAction());
        }
        for (QAction* entry : main.findChildren<QAction*>())
            entry->trigger();
        press(Qt::Key_R, Qt::AltModifier);
        press(Qt::Key_Return);
        QTest::mouseClick(find(Name::xpFrame, 2), Qt::LeftButton, {}, QPoint(40, 60));
        QTest::mouseClick(find(Name::Text, 1), Qt::LeftButton);
        QTest::keyClick(find(Name::xpCombo, 0), Qt::Key_Down);
        QTest::qWait(250); // longer than a pressed button takes to spring back
        EXPECT_EQ(support::state(stage.program), state);
        EXPECT_TRUE(stage.dialogs.asked.empty());
    };
    press(Qt::Key_Return);
    EXPECT_GT(turns, 1);
    EXPECT_EQ(stage.main.Coup, 20001);
    EXPECT_EQ(focused(), "Text(0)") << "the focus comes back after the run";
    EXPECT_EQ(count.selectedText().toStdString(), "20000") << "for the next count to replace";
}

} // namespace
