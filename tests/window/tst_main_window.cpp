// SPDX-License-Identifier: MIT
// The main window as its user meets it: places, keys, wheel, and what it refuses during a run.
#include "look/style.h"
#include "look/text.h"
#include "support/stage.h"
#include "window/forms/main_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <vector>

namespace {

namespace plan = forms::plan;
using plan::Name;

/// How far two pictures of one size lie apart where they differ most, 0 to 255.
int distance(const QImage& one, const QImage& other) {
    int most = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            most = std::max(most, std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))));
    return most;
}

/// Everything below a node that a screen reader meets; of a table's cells the first ones do.
std::vector<QAccessibleInterface*> below(QAccessibleInterface& node) {
    std::vector<QAccessibleInterface*> found;
    for (int i = 0; i < std::min(node.childCount(), 200); ++i) {
        found.push_back(node.child(i));
        const auto more = below(*node.child(i));
        found.insert(found.end(), more.begin(), more.end());
    }
    return found;
}

class MainWindowTest : public testing::Test {
protected:
    MainWindowTest() {
        stage.clock.midnight = [] { return 1.0; };
        main.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&main));
    }

    template <class Widget = QWidget>
    Widget* find(Name name, int index) {
        return main.findChild<Widget*>(look::controlName(name, index));
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
    const auto check = [&](const plan::Control& panel, const auto& controls) {
        const auto* frame = find(panel.name, panel.index);
        ASSERT_TRUE(frame);
        EXPECT_EQ(frame->geometry(), look::toPixels(panel.place));
        for (const plan::Control& control : controls) {
            const auto* widget = find(control.name, control.index);
            ASSERT_TRUE(widget) << control.caption;
            const QRect wanted = look::toPixels(control.place);
            const QRect place = widget->geometry();
            EXPECT_EQ(widget->parentWidget(), frame);
            EXPECT_EQ(place.topLeft(), wanted.topLeft()) << control.caption;
            if (control.name == Name::Label || control.name == Name::Label1) {
                EXPECT_TRUE(place.contains(wanted)) << control.caption; // grows with its text
                EXPECT_LE(place.right(), frame->rect().right());
            } else if (control.name != Name::Grid) {
                EXPECT_EQ(place, wanted) << control.caption;
            }
        }
    };
    check(plan::Panels[0], plan::Eingabe);
    check(plan::Panels[1], plan::Sortierung);
    check(plan::Panels[2], plan::Tableau);
    stage.main.Grid[0].Width = 4710;
    main.refresh();
    EXPECT_EQ(find(Name::Grid, 0)->geometry(), look::toPixels({120, 720, 4710, 9255}));
}

TEST_F(MainWindowTest, LabelsKeepClearOfWhatStandsBehindThem) {
    const auto clear = [this](int label, Name name, int index) {
        return find(Name::Label, label)->geometry().right() < find(name, index)->x();
    };
    EXPECT_TRUE(clear(0, Name::Text, 1));
    EXPECT_TRUE(clear(1, Name::Text, 2));
    EXPECT_TRUE(clear(2, Name::xpButton, 4));
    EXPECT_TRUE(clear(3, Name::xpButton, 5));
}

TEST_F(MainWindowTest, NoAccessKeyHasTwoOwners) {
    std::multiset<QString> keys;
    for (const auto* button : main.findChildren<QAbstractButton*>())
        if (!button->shortcut().isEmpty())
            keys.insert(button->shortcut().toString());
    for (const auto* entry : main.menuBar()->actions())
        keys.insert(QKeySequence::mnemonic(entry->text()).toString());
    EXPECT_EQ(keys.size(), 5U); // Laden, Rückgängig, Speichern; Datei, Info
    for (const QString& key : keys)
        EXPECT_EQ(keys.count(key), 1U) << key.toStdString();
    std::set<QString> letters;
    const auto entries = main.menuBar()->actions().first()->menu()->actions();
    for (const auto* entry : entries)
        EXPECT_TRUE(letters.insert(QKeySequence::mnemonic(entry->text()).toString()).second);
}

// The screen of these tests is smaller than the window, so this also shows that everything can be
// reached on a small one.
TEST_F(MainWindowTest, TabWalksThroughTheWindowInReadingOrder) {
    const auto* area = main.findChild<QScrollArea*>();
    EXPECT_TRUE(main.screen()->availableGeometry().contains(main.frameGeometry()));
    QStringList walk;
    do {
        walk += focused();
        const QWidget* at = main.focusWidget();
        const QPoint corner = at->mapTo(area->viewport(), QPoint(0, 0));
        EXPECT_TRUE(area->viewport()->rect().contains(corner)) << focused().toStdString();
        QTest::keyClick(main.focusWidget(), Qt::Key_Tab);
    } while (focused() != walk.first() && walk.size() < 40);
    EXPECT_EQ(walk.join(u' '),
        QStringLiteral("xpFrame(2) Text(0) xpButton(2) xpButton(0) xpButton(1) xpButton(3) "
                       "xpCombo(0) Grid(0) Check(0) Check(1) Text(1) xpButton(4) Text(2) "
                       "xpButton(5)"));
}

TEST_F(MainWindowTest, AltRTakesBackAndNeverClears) {
    for (const int number : {1, 2, 3, 4, 5})
        stage.click(number);
    for (int left = 4; left >= 2; --left) {
        press(Qt::Key_R, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return stage.main.Coup == left; }, 20000)) << left;
    }
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stage.main.Coup, 1);
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
    EXPECT_EQ(stage.main.Coup, 3);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stage.main.Coup, 2) << "behind a series the key means the coups";
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
    EXPECT_EQ(count.text().toStdString(), "123");
    EXPECT_EQ(stage.main.Text[0].Text, "123");
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("é4"));
    QApplication::sendEvent(&count, &composed);
    EXPECT_EQ(count.text().toStdString(), "1234");
    press(Qt::Key_Backspace);
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    EXPECT_EQ(stage.main.Text[0].Text, "23");
    QApplication::clipboard()->setText(QStringLiteral("5 Coups"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(stage.main.Text[0].Text, "5 Coups");
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    EXPECT_EQ(stage.main.Coup, 10);
    EXPECT_EQ(count.text().toStdString(), "5 Coups");
}

TEST_F(MainWindowTest, MarkingBoxesAskInsteadOfBeingTypedInto) {
    auto& box = *find<QLineEdit>(Name::Text, 2);
    stage.dialogs.answer = "3";
    focus(Name::Text, 2);
    QTest::keyClicks(&box, "7");
    press(Qt::Key_Backspace);
    EXPECT_TRUE(stage.dialogs.asked.empty());
    press(Qt::Key_Space);
    EXPECT_EQ(box.text().toStdString(), "3");
    EXPECT_EQ(box.palette().color(QPalette::Base), QColor(0, 0, 255));
    EXPECT_EQ(box.palette().color(QPalette::Text), QColor(255, 255, 255));
    press(Qt::Key_Return);
    QTest::mouseClick(&box, Qt::LeftButton);
    QTest::mouseClick(&box, Qt::RightButton);
    ASSERT_EQ(stage.dialogs.asked.size(), 3U);
    EXPECT_EQ(stage.dialogs.asked[2].substr(0, 23), "Pleins mind. markieren!");
    find<QPushButton>(Name::xpButton, 5)->click();
    main.refresh();
    EXPECT_EQ(box.text().toStdString(), "");
    EXPECT_EQ(box.palette().color(QPalette::Base), QColor(255, 255, 255));
}

TEST_F(MainWindowTest, AScreenReaderIsOfferedWhatAUserCanDo) {
    const std::set<QAccessible::Role> used{QAccessible::Button, QAccessible::CheckBox,
        QAccessible::ComboBox, QAccessible::EditableText, QAccessible::ListItem,
        QAccessible::MenuItem};
    for (const bool open : {true, false}) {
        stage.main.Enabled = open;
        main.refresh();
        std::set<QAccessible::Role> met;
        for (auto* node : below(*QAccessible::queryAccessibleInterface(&main))) {
            const QString name = node->text(QAccessible::Name);
            const QAccessible::State state = node->state();
            QStringList actions
                = node->actionInterface() ? node->actionInterface()->actionNames() : QStringList();
            EXPECT_FALSE(state.editable && state.readOnly) << name.toStdString();
            EXPECT_EQ(node->editableTextInterface() != nullptr, bool(state.editable));
            EXPECT_FALSE(state.focusable && name.trimmed().isEmpty()) << node->role();
            EXPECT_FALSE(state.focusable && !state.disabled && actions.isEmpty()) << node->role();
            actions.removeAll(QAccessibleActionInterface::setFocusAction());
            if (used.count(node->role()) != 0) {
                met.insert(node->role());
                EXPECT_EQ(bool(state.disabled), !open) << name.toStdString();
                // The toolkit always offers an entry and presses an enabled one only.
                const bool offered = open || node->role() == QAccessible::MenuItem;
                EXPECT_EQ(!actions.isEmpty(), offered) << name.toStdString();
            }
        }
        EXPECT_EQ(met, used);
    }
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
    EXPECT_EQ(box.currentIndex(), 0);
    press(Qt::Key_Down);
    EXPECT_EQ(stage.main.xpCombo[0].ListIndex, 1);
    EXPECT_EQ(box.currentText().toStdString(), "Pair/Impair");
    stage.main.inHandler = true; // a choice that is refused leaves no trace
    press(Qt::Key_Down);
    EXPECT_EQ(box.currentText().toStdString(), "Pair/Impair");
    stage.main.inHandler = false;
}

TEST_F(MainWindowTest, DuringARunNothingGetsInAndNothingTurnsGrey) {
    stage.click(8);
    focus(Name::Text, 0);
    QTest::keyClicks(&count, "20000");
    const auto pictures = [this] {
        std::map<std::string, QImage> grabbed;
        for (QWidget* widget : main.findChildren<QWidget*>())
            if (widget->isVisible()
                && (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QComboBox*>(widget)
                    || qobject_cast<QLabel*>(widget)))
                grabbed[widget->objectName().toStdString()] = widget->grab().toImage();
        return grabbed;
    };
    const auto before = pictures();
    int turns = 0;
    stage.events.onTurn = [&] {
        main.refresh();
        if (++turns != 1)
            return;
        for (const auto& [name, picture] : pictures())
            if (name != "Label(4)") {
                EXPECT_LT(distance(picture, before.at(name)), 32) << name; // grey text is 100 off
            }
        const auto state = support::state(stage.program);
        for (auto* button : main.findChildren<QAbstractButton*>()) {
            button->click();
            if (QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(button))
                if (auto* actions = spoken->actionInterface())
                    actions->doAction(QAccessibleActionInterface::pressAction());
        }
        for (QAction* entry : main.findChildren<QAction*>())
            entry->trigger();
        for (const auto& [key, modifier] : {std::pair(Qt::Key_R, Qt::AltModifier),
                 {Qt::Key_L, Qt::AltModifier}, {Qt::Key_Z, Qt::ControlModifier},
                 {Qt::Key_Return, Qt::NoModifier}, {Qt::Key_5, Qt::NoModifier}})
            press(key, modifier);
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
}

TEST_F(MainWindowTest, ClosingIsLeftToTheProgram) {
    int turns = 0;
    stage.events.onTurn = [&] {
        ++turns;
        const bool closed = turns == 2 && main.close();
        EXPECT_FALSE(closed);
    };
    stage.draw("1000000");
    EXPECT_EQ(turns, 2) << "the run leaves its loop";
    EXPECT_EQ(stage.processes.ends, 1);
    EXPECT_FALSE(stage.main.loaded);
}

} // namespace
