// SPDX-License-Identifier: MIT
// The whole program in this process, worked through its widgets.
#include "desk.h"

#include "harness.h"
#include "look/control_names.h"

#include <QEventLoop>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace bench {

namespace {

using forms::plan::Name;

constexpr int loadButton = 2;
constexpr double longestWait = 60; // seconds
constexpr int patience = 60; // milliseconds, a few frames
constexpr int messageWatch = 1000; // milliseconds; rare enough to cost nothing

template <class Widget>
Widget& found(Widget* widget, const char* what) {
    if (!widget) {
        std::fprintf(stderr, "no %s in the window\n", what);
        std::exit(2);
    }
    return *widget;
}

window::MainWindow* mainWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* main = qobject_cast<window::MainWindow*>(widget); main && main->isVisible())
            return main;
    return nullptr;
}

/// Answers the next file dialog; tells the moment through `answered`.
void answerFileDialog(const std::string& file, const std::function<void()>& answered) {
    auto* const look = new QTimer;
    QObject::connect(look, &QTimer::timeout, look, [=] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        auto* const line = dialog ? dialog->findChild<QLineEdit*>() : nullptr;
        if (!line || !line->hasFocus())
            return; // it would take a name for one of its own choosing
        look->stop();
        look->deleteLater();
        line->setText(QString::fromStdString(file));
        answered();
        static_cast<QDialog*>(dialog)->accept();
    });
    look->start(1);
}

} // namespace

Desk::Desk(window::MainWindow& main)
    : main_(main), view_(&found(main.findChild<window::GridView*>(), "grid")),
      tableau_(&found(main.findChild<window::TableauView*>(), "tableau")) { }

RunTimes Desk::load(const std::string& file, const std::function<void()>& answered) {
    RunTimes begin;
    answerFileDialog(file, [&] {
        answered();
        begin = {threadSeconds(), wallSeconds()};
    });
    press(loadButton);
    untilPainted();
    return {threadSeconds() - begin.cpu, wallSeconds() - begin.wall};
}

void Desk::loadInPart(const std::string& file, const std::function<void()>& ended) {
    answerFileDialog(file, [] {});
    press(loadButton);
    ended();
}

RunTimes Desk::draw(std::int64_t count) {
    const RunTimes begin{threadSeconds(), wallSeconds()};
    drawInPart(count, [] {});
    untilPainted();
    return {threadSeconds() - begin.cpu, wallSeconds() - begin.wall};
}

void Desk::drawInPart(std::int64_t count, const std::function<void()>& ended) {
    auto* const box = main_.findChild<QLineEdit*>(look::controlName(Name::Text, 0));
    found(box, "count box").setText(QString::number(count));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QApplication::sendEvent(box, &enter);
    ended();
}

void Desk::press(int button) {
    const QString name = look::controlName(Name::xpButton, button);
    found(main_.findChild<QPushButton*>(name), "button").click();
}

bool Desk::until(const std::function<bool()>& done) {
    const double begin = wallSeconds();
    while (!done()) {
        if (wallSeconds() - begin > longestWait)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void Desk::settle() {
    QEventLoop loop;
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec();
}

Counts Desk::counters() const {
    Counts counts;
    for (int number = 0; number < 37; ++number)
        counts.push_back(tableau_->itemText(window::TableauView::FirstBadge + number).toLongLong());
    return counts;
}

window::ProgressWindow* Desk::progress() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* dialog = qobject_cast<window::ProgressWindow*>(widget))
            return dialog->isVisible() ? dialog : nullptr;
    return nullptr;
}

void Desk::untilPainted() {
    until([this] { return lastRowShown(); });
    QCoreApplication::processEvents();
}

bool Desk::lastRowShown() const {
    return view_->isEnabled() && view_->top() + view_->fullRows() >= rows();
}

void atDesk(QApplication& application, const std::function<void(Desk&)>& script) {
    window::Application program("0.0.0");
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &application, [&] {
        if (!mainWindow())
            return;
        look.stop();
        Desk desk(*mainWindow());
        desk.settle();
        script(desk);
        QCoreApplication::exit(0);
    });
    look.start(1);
    QTimer messages;
    QObject::connect(&messages, &QTimer::timeout, &application, [] {
        // One that nobody expects would wait for ever.
        if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            std::fprintf(stderr, "unexpected message: %s\n", qPrintable(box->text()));
            std::_Exit(2);
        }
    });
    messages.start(messageWatch);
    program.run();
}

} // namespace bench
