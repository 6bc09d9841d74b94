// SPDX-License-Identifier: MIT
// The whole program in this process, worked through its widgets.
#include "desk.h"

#include "harness.h"
#include "look/text.h"

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

/// The visible window of this class, or null.
template <class Window>
Window* visible() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = qobject_cast<Window*>(widget); window && window->isVisible())
            return window;
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
    : main_(main), view_(*main.findChild<window::GridView*>()),
      tableau_(*main.findChild<window::TableauView*>()) { }

double Desk::load(const std::string& file, const std::function<void()>& answered) {
    double begin = 0;
    startLoad(file, [&] {
        answered();
        begin = threadSeconds();
    });
    const double waited = wallSeconds();
    while (!lastRowShown() && wallSeconds() - waited < longestWait)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
    return threadSeconds() - begin;
}

void Desk::startLoad(const std::string& file, const std::function<void()>& answered) {
    answerFileDialog(file, answered);
    press(loadButton);
}

void Desk::startDraw(std::int64_t count) {
    auto* const box = main_.findChild<QLineEdit*>(look::controlName(Name::Text, 0));
    box->setText(QString::number(count));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QApplication::sendEvent(box, &enter);
}

void Desk::press(int button) {
    main_.findChild<QPushButton*>(look::controlName(Name::xpButton, button))->click();
}

void Desk::settle() {
    QEventLoop loop;
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec();
}

Counts Desk::counters() const {
    Counts counts{};
    for (int badge = window::TableauView::FirstBadge; std::int64_t & count : counts)
        count = tableau_.itemText(badge++).toLongLong();
    return counts;
}

window::ProgressWindow* Desk::progress() {
    return visible<window::ProgressWindow>();
}

bool Desk::lastRowShown() const {
    return view_.isEnabled() && view_.top() + view_.fullRows() >= rows();
}

void atDesk(QApplication& application, const std::function<void(Desk&)>& script) {
    window::Application program("0.0.0");
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &application, [&] {
        auto* const main = visible<window::MainWindow>();
        if (!main)
            return;
        look.stop();
        Desk desk(*main);
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
