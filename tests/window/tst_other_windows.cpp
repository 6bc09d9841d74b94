// SPDX-License-Identifier: MIT
// Splash, progress dialog and info dialog: what closes them, what doesn't, and the rippling
// picture.
#include "desktop/dialogs.h"
#include "look/style.h"
#include "look/text.h"
#include "progress/long_run.h"
#include "support/places.h"
#include "support/stage.h"
#include "window/forms/info_window.h"
#include "window/forms/progress_window.h"
#include "window/forms/start_window.h"
#include "window/forms/water_surface.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

namespace plan = forms::plan;
using plan::Name;
using support::expectPlaces;
using support::find;

class WindowsTest : public testing::Test {
protected:
    WindowsTest() {
        stage.clock.midnight = [] { return 1.0; };
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
    for (const bool mayCancel : {true, false})
        for (int way = 0; way < 4; ++way) {
            progress::show(stage.program, 40, mayCancel);
            window::ProgressWindow dialog(session, nullptr);
            dialog.show();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            if (way <= 1) // Return is the key that starts a run
                QTest::keyClick(&dialog, way == 0 ? Qt::Key_Return : Qt::Key_Escape);
            else
                way == 2 ? static_cast<void>(dialog.close())
                         : find<QPushButton>(dialog, Name::xpButton)->click();
            EXPECT_TRUE(dialog.isVisible()) << "the run alone takes it away";
            EXPECT_EQ(stage.program.Frm_Progressbar.Abbruch, mayCancel && way > 0 ? 1 : 0) << way;
            progress::Form_Unload(stage.program);
        }
}

TEST_F(WindowsTest, EveryWayOutOfTheInfoDialogIsOk) {
    stage.program.version = "1.2.3";
    for (int way = 0; way < 4; ++way) {
        Frm_Main::M_Info_Click(stage.program, stage.platform);
        window::InfoWindow dialog(session, nullptr);
        dialog.refresh();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        expectPlaces(dialog, plan::Info);
        EXPECT_EQ(find<QLabel>(dialog, Name::lblVersion)->text(), "1.2.3");
        stage.media.commands.clear();
        if (way == 3)
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        if (way == 2)
            dialog.close();
        else
            QTest::keyClick(dialog.focusWidget(), way == 0 ? Qt::Key_Escape : Qt::Key_Return);
        dialog.refresh();
        EXPECT_EQ(dialog.isVisible(), way == 3);
        EXPECT_EQ(stage.media.commands.size(), way == 3 ? 0U : 1U);
    }
    EXPECT_EQ(stage.dialogs.messages.size(), 1U) << "Enter pressed the button that had the focus";
}

TEST(FileDialogTest, WhatIsSavedIsSeenAgain) {
    const QTemporaryDir folder;
    const auto at = [&](const char* name) { return folder.filePath(name).toStdString(); };
    desktop::Dialogs dialogs([] { return nullptr; });
    QString question;
    const auto chosen = [&](bool save, const char* name) {
        question.clear();
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
            for (const auto* button : dialog->findChildren<QPushButton*>())
                EXPECT_TRUE(button->icon().isNull());
            EXPECT_EQ(dialog->findChild<QLabel*>(QStringLiteral("lookInLabel"))->text(),
                save ? "Speichern in:" : "Suchen in:");
            QTimer::singleShot(0, [&] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    question = box->text();
                    box->buttons().front()->click();
                }
            });
            dialog->accept();
        });
        const platform::Filter filter{"Textdateien (*.txt)", "*.txt"};
        return (
            save ? dialogs.saveFile("", filter, at("x")) : dialogs.openFile("", filter, at("x")))
            .value_or("");
    };
    for (const auto& [typed, named] :
        {std::pair("Abend", "Abend.txt"), {"Abend.1", "Abend.1.txt"}, {"ABEND.TXT", "ABEND.TXT"}}) {
        EXPECT_EQ(chosen(true, typed), at(named));
        EXPECT_EQ(chosen(false, typed), at(named));
        EXPECT_EQ(question.toStdString(), "");
    }
    for (const char* name : {"Abend", "Abend.txt"})
        QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
    EXPECT_EQ(chosen(false, "Abend"), at("Abend"));
    EXPECT_EQ(chosen(true, "Abend"), at("Abend.txt"));
    EXPECT_TRUE(question.contains(QStringLiteral("„Abend.txt“"))) << question.toStdString();
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
    QImage wanted(148, 147, QImage::Format_RGB32);
    wanted.fill(look::toColor(controls::ActiveTitle));
    QPainter painter(&wanted);
    painter.drawImage(QPoint(100, 3), icon, QRect(40, 60, 4, 4));
    painter.drawImage(QPoint(-2, 145), icon, QRect(8, 8, 4, 4));
    painter.fillRect(50, 50, 4, 4, QColor(192, 192, 192));
    painter.end();
    EXPECT_EQ(water.grab(water.contentsRect()).toImage().convertedTo(QImage::Format_RGB32), wanted);
}

} // namespace
