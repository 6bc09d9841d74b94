// SPDX-License-Identifier: MIT
// Splash, progress dialog and info dialog: what closes them, what doesn't, and the rippling
// picture.
#include "look/style.h"
#include "look/text.h"
#include "progress/long_run.h"
#include "support/stage.h"
#include "window/forms/info_window.h"
#include "window/forms/progress_window.h"
#include "window/forms/start_window.h"
#include "window/forms/water_surface.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {

namespace plan = forms::plan;
using plan::Name;

class WindowsTest : public testing::Test {
protected:
    WindowsTest() {
        stage.clock.midnight = [] { return 1.0; };
    }

    template <class Widget>
    static Widget* find(const QWidget& window, Name name, int index = 0) {
        return window.findChild<Widget*>(look::controlName(name, index));
    }
    template <std::size_t n>
    static void expectPlaces(const QWidget& window, const std::array<plan::Control, n>& controls) {
        for (const plan::Control& control : controls) {
            const QRect wanted = look::toPixels(control.place);
            const auto* widget = find<QWidget>(window, control.name, control.index);
            if (control.name == Name::Picture2)
                continue; // never seen
            ASSERT_TRUE(widget) << control.caption;
            EXPECT_EQ(widget->pos(), wanted.topLeft()) << control.caption;
            // A label that shows a text grows with it.
            const auto* label = qobject_cast<const QLabel*>(widget);
            EXPECT_TRUE((label && label->pixmap().isNull()) || widget->size() == wanted.size())
                << control.caption;
        }
    }

    support::Stage stage;
    window::Session session{stage.program, stage.platform};
};

TEST_F(WindowsTest, TheSplashStaysForThreeTicksWhateverTheUserDoes) {
    stage.program = {};
    Frm_Start::Form_Load(stage.program);
    window::StartWindow splash(session);
    splash.refresh();
    EXPECT_EQ(splash.size(), QSize(664, 261));
    expectPlaces(splash, plan::Start);
    EXPECT_FALSE(splash.close());
    QTest::mouseClick(&splash, Qt::LeftButton);
    QTest::keyClick(&splash, Qt::Key_Escape);
    EXPECT_TRUE(splash.isVisible());
    EXPECT_EQ(stage.program.Frm_Start.Ticks, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.main.Visible; }, 20000));
    EXPECT_EQ(stage.program.Frm_Start.Ticks, 3);
    splash.refresh();
    EXPECT_FALSE(splash.isVisible());
}

TEST_F(WindowsTest, EscAndClosingTheProgressDialogCancelTheRun) {
    forms::ProgressForm& form = stage.program.Frm_Progressbar;
    const auto cancelledBy = [&](bool mayCancel, auto action) {
        progress::show(stage.program, 40, mayCancel);
        window::ProgressWindow dialog(session, nullptr);
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        action(dialog);
        EXPECT_TRUE(dialog.isVisible()) << "the run alone takes it away";
        const bool cancelled = form.Abbruch == 1;
        progress::Form_Unload(stage.program);
        return cancelled;
    };
    const auto key
        = [](Qt::Key code) { return [code](QWidget& dialog) { QTest::keyClick(&dialog, code); }; };
    const auto close = [](QWidget& dialog) { dialog.close(); };
    const auto click = [](QWidget& dialog) { find<QPushButton>(dialog, Name::xpButton)->click(); };
    EXPECT_TRUE(cancelledBy(true, key(Qt::Key_Escape)));
    EXPECT_TRUE(cancelledBy(true, close));
    EXPECT_TRUE(cancelledBy(true, click));
    EXPECT_FALSE(cancelledBy(true, key(Qt::Key_Return))) << "the key that starts a run";
    EXPECT_FALSE(cancelledBy(false, key(Qt::Key_Escape)));
    EXPECT_FALSE(cancelledBy(false, close));
    EXPECT_FALSE(cancelledBy(false, click));
}

TEST_F(WindowsTest, TheBarFollowsTheModelAndIsEmptyWithoutATotal) {
    progress::show(stage.program, 0, true);
    window::ProgressWindow dialog(session, nullptr);
    EXPECT_EQ(dialog.size(), QSize(339, 71));
    expectPlaces(dialog, plan::Progress);
    const auto& bar = *find<QProgressBar>(dialog, Name::xpProgress);
    EXPECT_LT(bar.minimum(), bar.maximum()) << "equal ends would make it run for ever";
    EXPECT_EQ(bar.value(), bar.minimum());
    stage.program.Frm_Progressbar.xpProgress = {40, 23};
    progress::report(stage.program, 63, 40, 23);
    dialog.refresh();
    EXPECT_EQ(bar.value() * 40, bar.maximum() * 23);
    EXPECT_EQ(find<QLabel>(dialog, Name::Lbl_Status)->text(), " Status: Berechne 63 / 40 (57 %)");
}

TEST_F(WindowsTest, EveryWayOutOfTheInfoDialogIsOk) {
    stage.program.version = "1.2.3";
    const auto open = [this](auto action) {
        Frm_Main::M_Info_Click(stage.program, stage.platform);
        window::InfoWindow dialog(session, nullptr);
        dialog.refresh();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        expectPlaces(dialog, plan::Info);
        EXPECT_EQ(find<QLabel>(dialog, Name::lblVersion)->text(), "1.2.3");
        stage.media.commands.clear();
        action(dialog);
        dialog.refresh();
        EXPECT_EQ(dialog.isVisible(), stage.program.Frm_Info.Visible);
        return stage.media.commands == std::vector<std::string>{"stop"};
    };
    const auto key = [](Qt::Key code) {
        return [code](QWidget& dialog) { QTest::keyClick(dialog.focusWidget(), code); };
    };
    EXPECT_TRUE(open(key(Qt::Key_Return)));
    EXPECT_TRUE(open(key(Qt::Key_Escape)));
    EXPECT_TRUE(open([](QWidget& dialog) { dialog.close(); }));
    EXPECT_FALSE(open([](QWidget& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    }));
    EXPECT_EQ(stage.dialogs.messages.size(), 1U) << "Enter pressed the button that had the focus";
}

TEST_F(WindowsTest, WaterTakesPiecesOfThePictureAndNothingElse) {
    const auto place = std::find_if(plan::Info.begin(), plan::Info.end(),
        [](const plan::Control& control) { return control.name == Name::picIcon; });
    window::WaterSurface water(session, *place, nullptr);
    const QImage icon(QStringLiteral(":/pictures/icon.png"));
    EXPECT_EQ(QSize(water.innerWidth(), water.innerHeight()), QSize(148, 147));
    water.copyCell(40, 60, 100, 3);
    water.copyCell(8, 8, -2, 145); // half outside the surface
    water.copyCell(148, 0, 50, 50); // beyond the picture: its ground
    water.copyCell(0, 0, 4000, -4000);
    const QImage seen = water.grab().toImage();
    const QRgb ground = look::toColor(controls::ActiveTitle).rgb();
    const QPoint inside = water.contentsRect().topLeft();
    int covered = 0;
    for (int y = 0; y < 147; ++y)
        for (int x = 0; x < 148; ++x) {
            const QRgb here = seen.pixel(inside + QPoint(x, y));
            if (QRect(100, 3, 4, 4).contains(x, y))
                ASSERT_EQ(here, icon.pixel(x - 60, y + 57)) << x << ' ' << y;
            else if (QRect(50, 50, 4, 4).contains(x, y))
                ASSERT_EQ(here, qRgb(192, 192, 192)) << x << ' ' << y;
            else if (QRect(-2, 145, 4, 4).contains(x, y))
                ASSERT_EQ(here, icon.pixel(x + 10, y - 137)) << x << ' ' << y;
            else
                ASSERT_EQ(here, ground) << x << ' ' << y;
            covered += here != ground ? 1 : 0;
        }
    EXPECT_EQ(covered, 16 + 16 + 4);
}

} // namespace
