// SPDX-License-Identifier: MIT
// Number pad and tableau as a user meets them: by mouse, by keyboard, through a screen reader.
#include "desktop/desktop.h"
#include "look/style.h"
#include "look/text.h"
#include "shell/handlers.h"
#include "stats/tableau.h"
#include "window/tableau/pad_view.h"
#include "window/tableau/tableau_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>

#include <memory>
#include <set>
#include <vector>

namespace {

using window::PadView;
using window::TableauView;

/// A program that has been started, with pad and tableau on a panel each.
class CellsTest : public testing::Test {
protected:
    CellsTest() {
        Frm_Main::Form_Load(program);
        panels.resize(800, 700);
        pad = new PadView(session,
            forms::plan::rowOf(forms::plan::Eingabe, forms::plan::Name::xpFrame, 2), &panels);
        tableau = new TableauView(session, &panels);
        tableau->move(200, 0);
        panels.show();
        panels.activateWindow();
        pad->setFocus();
        QApplication::processEvents();
    }

    static void mouse(
        QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
        const bool up = type == QEvent::MouseButtonRelease || type == QEvent::MouseMove;
        QMouseEvent event(type, at, widget->mapToGlobal(at),
            type == QEvent::MouseMove ? Qt::NoButton : button, up ? Qt::NoButton : button, {});
        QApplication::sendEvent(widget, &event);
    }

    void press(int number, Qt::MouseButton button = Qt::LeftButton) {
        mouse(pad, QEvent::MouseButtonPress, pad->cellRect(number).center(), button);
    }
    void release(int number, Qt::MouseButton button = Qt::LeftButton) {
        mouse(pad, QEvent::MouseButtonRelease, pad->cellRect(number).center(), button);
    }

    void key(int code, bool repeated = false, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent down(QEvent::KeyPress, code, modifiers, QString(), repeated);
        QApplication::sendEvent(pad, &down);
        QKeyEvent up(QEvent::KeyRelease, code, modifiers, QString(), repeated);
        QApplication::sendEvent(pad, &up);
    }

    void refresh() {
        pad->refresh();
        tableau->refresh();
    }

    std::int64_t coups() const { return program.Frm_Main.Coup; }
    std::vector<std::string> permanence() const {
        std::vector<std::string> numbers;
        for (std::int64_t row = 1; row <= coups(); ++row)
            numbers.push_back(std::string(program.Frm_Main.Grid[1].Row(row).Cell(2)));
        return numbers;
    }

    /// The colour of an item's ground, seen in its corner.
    static QColor ground(QWidget* widget, const QRect& place) {
        return widget->grab().toImage().pixelColor(place.topLeft() + QPoint(2, 2));
    }

    forms::Program program;
    desktop::RealPlatform real{[] {}, []() -> QWidget* { return nullptr; }};
    window::Session session{program, real.platform()};
    QWidget panels;
    PadView* pad = nullptr;
    TableauView* tableau = nullptr;
};

TEST_F(CellsTest, EveryClickEntersOneCoup) {
    for (int number = 0; number < 37; ++number) {
        press(number);
        release(number);
        EXPECT_EQ(program.Frm_Main.Plein, number);
    }
    EXPECT_EQ(coups(), 37);
    // The second click of a double click comes as an event of its own kind.
    press(5);
    release(5);
    mouse(pad, QEvent::MouseButtonDblClick, pad->cellRect(5).center());
    release(5);
    EXPECT_EQ(coups(), 39);
}

TEST_F(CellsTest, WhatIsNoClickEntersNothing) {
    press(5);
    release(8);
    release(8);
    press(5, Qt::RightButton);
    release(5, Qt::RightButton);
    mouse(pad, QEvent::MouseButtonPress, QPoint(1, 1));
    mouse(pad, QEvent::MouseButtonRelease, QPoint(1, 1));
    const QPoint onTableau = tableau->itemRect(TableauView::FirstNumber + 5).center();
    mouse(tableau, QEvent::MouseButtonPress, onTableau);
    mouse(tableau, QEvent::MouseButtonRelease, onTableau);
    EXPECT_EQ(coups(), 0);

    // A run that starts while a cell is held down swallows the click.
    press(5);
    program.Frm_Main.Enabled = false;
    refresh();
    release(5);
    key(Qt::Key_Space);
    program.Frm_Main.Enabled = true;
    refresh();
    release(5);
    EXPECT_EQ(coups(), 0);
}

TEST_F(CellsTest, KeysMoveAndEnter) {
    struct Case {
        std::vector<int> keys;
        std::vector<std::string> numbers;
    };
    const std::vector<Case> cases{
        {{Qt::Key_1, Qt::Key_7, Qt::Key_Return}, {"17"}},
        {{Qt::Key_3, Qt::Key_7, Qt::Key_Enter}, {"7"}},
        {{Qt::Key_0, Qt::Key_7, Qt::Key_Space}, {"7"}},
        {{Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_Space}, {"3"}},
        {{Qt::Key_1, Qt::Key_Space, Qt::Key_7, Qt::Key_Space}, {"1", "7"}},
        {{Qt::Key_2, Qt::Key_Right, Qt::Key_4, Qt::Key_Space}, {"4"}},
        {{Qt::Key_Home, Qt::Key_Down, Qt::Key_Space}, {"2"}},
        {{Qt::Key_3, Qt::Key_Right, Qt::Key_Up, Qt::Key_Up, Qt::Key_Space}, {"0"}},
        {{Qt::Key_End, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up, Qt::Key_Space}, {"32"}},
    };
    for (const Case& each : cases) {
        Frm_Main::xpButton_Click(program, real.platform(), 1);
        for (const int code : each.keys)
            key(code);
        EXPECT_EQ(permanence(), each.numbers);
    }
    // Holding the key down is one coup; a shortcut of the window is none.
    key(Qt::Key_Return, true);
    key(Qt::Key_Return, false, Qt::ControlModifier);
    EXPECT_EQ(coups(), 1);
}

TEST_F(CellsTest, PointerAndPressShowInTheCell) {
    const QColor blue(0, 0, 255);
    const QRect red = pad->cellRect(5);
    mouse(pad, QEvent::MouseMove, red.center());
    EXPECT_EQ(ground(pad, red), blue);
    pad->clearFocus();
    press(5);
    EXPECT_EQ(ground(pad, red), QColor(255, 0, 0));
    release(5);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(pad, &leave);
    press(4);
    release(4);
    QApplication::sendEvent(pad, &leave);
    refresh();
    EXPECT_EQ(ground(pad, red), QColor(0, 192, 0)) << "no longer the last number";
    EXPECT_EQ(ground(pad, pad->cellRect(8)), QColor(0, 192, 0));

    // Two labels lie over the ends of the zero's wide cell; its middle is under its badge.
    const QRect zero = tableau->itemRect(TableauView::FirstNumber);
    mouse(tableau, QEvent::MouseMove, tableau->itemRect(TableauView::FirstBadge).center());
    EXPECT_EQ(ground(tableau, tableau->itemRect(TableauView::FirstBadge)), blue);
    EXPECT_NE(tableau->grab().toImage().pixelColor(zero.left() + 2, zero.bottom() - 2), blue);
    mouse(tableau, QEvent::MouseMove, QPoint(zero.left() + 2, zero.bottom() - 2));
    EXPECT_EQ(ground(tableau, tableau->itemRect(TableauView::FirstBadge)), QColor(0, 192, 0));
}

/// Adds up what a widget is asked to paint.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }
    QRegion take() {
        QApplication::processEvents();
        return std::exchange(painted_, {});
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted_ += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

private:
    QRegion painted_;
};

TEST_F(CellsTest, OnlyWhatChangedIsRepainted) {
    PaintWatch watch(tableau);
    watch.take();
    refresh();
    EXPECT_TRUE(watch.take().isEmpty());
    pad->enter(0);
    refresh();
    // A zero belongs to the last two labels of rows of three and to nothing else.
    QRegion expected;
    for (int item = 0; item < TableauView::ItemCount; ++item) {
        const QString text = tableau->itemText(item);
        if (item == TableauView::FirstNumber || text.endsWith(QLatin1String("TVP= 1")))
            expected += tableau->itemRect(item);
    }
    EXPECT_EQ(watch.take(), expected);
}

TEST_F(CellsTest, EveryCountUpToEightDigitsFits) {
    for (int number = 0; number < 37; ++number) {
        auto& counts = program.counters.Anz_Plein;
        counts = {};
        counts[static_cast<std::size_t>(number)] = 88'888'888;
        tableau->refresh();
        for (int item = 0; item < TableauView::ItemCount; ++item)
            EXPECT_FALSE(tableau->isCut(item)) << tableau->itemText(item).toStdString();
    }
}

TEST(StyleTest, SpeaksGermanAndStaysLightEverywhere) {
    QLocale::setDefault(QLocale::c());
    QApplication::setPalette(QPalette(Qt::black));
    look::applyStyle(*qApp);
    EXPECT_EQ(QLocale().toString(12.5), QStringLiteral("12,5"));
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Abbrechen"));
    const QPalette palette = QApplication::palette();
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        EXPECT_GT(palette.color(role).lightness(), 230);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        EXPECT_EQ(palette.color(role), QColor(Qt::black));
    EXPECT_EQ(look::toColor(controls::GreyText), QColor(128, 128, 128));
}

TEST(FitTest, NarrowsThenShrinksThenCuts) {
    const QFont font = look::toFont({975, true, false});
    const QString text = QStringLiteral("Transversalen");
    const int whole = QFontMetrics(font).horizontalAdvance(text);
    EXPECT_EQ(look::fitted(font, text, whole).font, font);
    for (int width = whole; width > 0; --width) {
        const look::Fit fit = look::fitted(font, text, width);
        EXPECT_LE(QFontMetrics(fit.font).horizontalAdvance(fit.text), width);
        EXPECT_TRUE(fit.text == text || fit.text.endsWith(QChar(0x2026)) || width < 12)
            << fit.text.toStdString();
        EXPECT_TRUE(fit.text == text || fit.font.pixelSize() == 8);
        EXPECT_TRUE(fit.font.pixelSize() == 13 || width < whole * 85 / 100);
    }
}

QString nameOf(QAccessibleInterface* item) {
    return item->text(QAccessible::Name);
}

TEST_F(CellsTest, ThePadIsAGroupOfButtons) {
    auto* group = QAccessible::queryAccessibleInterface(pad);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    ASSERT_EQ(group->childCount(), 37);
    for (int number = 0; number < 37; ++number) {
        auto* cell = group->child(number);
        EXPECT_EQ(cell->role(), QAccessible::Button);
        EXPECT_EQ(nameOf(cell), QString::number(number));
        EXPECT_EQ(cell->parent(), group);
        EXPECT_EQ(group->indexOfChild(cell), number);
        EXPECT_EQ(cell->rect().topLeft(), pad->mapToGlobal(pad->cellRect(number).topLeft()));
        const QPoint middle = cell->rect().center();
        EXPECT_EQ(group->childAt(middle.x(), middle.y()), cell);
    }

    auto* seventeen = group->child(17);
    auto* press = seventeen->actionInterface();
    ASSERT_NE(press, nullptr);
    ASSERT_TRUE(press->actionNames().contains(QAccessibleActionInterface::pressAction()));
    for (int i = 0; i < 3; ++i)
        press->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(coups(), 0) << "the asker has its answer first";
    QApplication::processEvents();
    EXPECT_EQ(coups(), 3);
    EXPECT_EQ(seventeen->text(QAccessible::Description),
        QStringLiteral(
            "Noir, Impair, Manque, 2. Kolonne, 2. Dutzend, 3 mal gefallen, letzte Zahl"));
    EXPECT_EQ(
        group->child(0)->text(QAccessible::Description), QStringLiteral("Zero, 0 mal gefallen"));

    press->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(group->focusChild(), seventeen);
    EXPECT_TRUE(seventeen->state().focused);
    EXPECT_FALSE(group->child(16)->state().focused);

    program.Frm_Main.Enabled = false;
    EXPECT_TRUE(seventeen->state().disabled);
    press->doAction(QAccessibleActionInterface::pressAction());
    QApplication::processEvents();
    EXPECT_EQ(coups(), 3);
}

TEST_F(CellsTest, TheTableauSpeaksItsCounts) {
    auto* group = QAccessible::queryAccessibleInterface(tableau);
    ASSERT_NE(group, nullptr);
    ASSERT_EQ(group->childCount(), 37 + 37 + 37);
    pad->enter(2);
    pad->enter(2);
    program.Frm_Main.Text[1].Text = "2";
    M_Tableau::Tableau_Aktualisieren(program);
    refresh();
    std::set<QString> names;
    for (int item = 0; item < group->childCount(); ++item) {
        EXPECT_EQ(group->child(item)->role(), QAccessible::StaticText);
        names.insert(nameOf(group->child(item)));
    }
    for (const char* name : {" Noir= 2", " Rouge= 0", " Ps= 0", " 1.K= 0", " 2.K= 2", " 1.D= 2",
             " 1.TVS= 2", " 7.TVS= 0", " 14.TVP= 2", "36"})
        EXPECT_EQ(
            names.count(QString::fromUtf8(name)), std::string_view(name) == " Ps= 0" ? 0U : 1U)
            << name;
    EXPECT_EQ(nameOf(group->child(TableauView::FirstBadge + 2)), QStringLiteral("2"));
    EXPECT_EQ(group->child(TableauView::FirstNumber + 2)->text(QAccessible::Description),
        QStringLiteral("Noir, Pair, Manque, 2. Kolonne, 1. Dutzend, 2 mal gefallen, markiert, "
                       "letzte Zahl"));
}

TEST_F(CellsTest, ScreenReaderItemsGoWithTheirWidget) {
    std::vector<QAccessible::Id> ids;
    for (QWidget* widget : std::initializer_list<QWidget*>{pad, tableau}) {
        auto* group = QAccessible::queryAccessibleInterface(widget);
        for (int item = 0; item < group->childCount(); ++item)
            ids.push_back(QAccessible::uniqueId(group->child(item)));
    }
    delete pad;
    delete tableau;
    for (const QAccessible::Id id : ids)
        EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

} // namespace
