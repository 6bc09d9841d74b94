// SPDX-License-Identifier: MIT
// From the start of the process to the splash, and from the splash's last tick to the main window.
#include "goals.h"
#include "process.h"
#include "window/application.h"

#include <QEvent>
#include <QTimer>

#include <cstdio>

namespace bench {

namespace {

/// Sees all events of the program and notes when windows were painted and when the splash ticked.
class Spy : public QObject {
public:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::Timer && dynamic_cast<QTimer*>(receiver)
            && static_cast<QTimer*>(receiver)->interval() == forms::plan::StartInterval)
            tick_ = wallSeconds();
        if (event->type() == QEvent::Paint) {
            if (dynamic_cast<window::StartWindow*>(receiver) && splash_ == 0)
                later(splash_);
            if (dynamic_cast<window::MainWindow*>(receiver) && main_ == 0)
                later(main_);
        }
        return false;
    }

private:
    /// When the event that brought the painting is over, the window's children included.
    void later(double& moment) {
        moment = -1;
        QTimer::singleShot(0, this, [this, &moment] {
            moment = wallSeconds();
            if (main_ <= 0)
                return;
            std::printf("splash=%f main=%f\n", splash_, main_ - tick_);
            QCoreApplication::exit(0);
        });
    }

    double splash_ = 0;
    double main_ = 0;
    double tick_ = 0;
};

} // namespace

int timeStart(QApplication& application) {
    Spy spy;
    application.installEventFilter(&spy);
    return window::Application("0.0.0").run();
}

void startUp(Report& report) {
    report.section("Start-up (on the wall, " + QGuiApplication::platformName().toStdString() + ")");
    std::vector<double> splash;
    std::vector<double> main;
    for (int round = 0; round < Rounds; ++round) {
        const double begin = wallSeconds();
        const Outcome outcome = runSelf({"--start"});
        report.check(outcome.good && valueOf(outcome, "main") > 0, "start-up is seen");
        splash.push_back((valueOf(outcome, "splash") - begin) * 1e3);
        main.push_back(valueOf(outcome, "main") * 1e3);
    }
    report.line(text("process started to splash painted:    median %6.1f ms, worst %6.1f ms",
        median(splash), largest(splash)));
    report.line(text("third tick to main window painted:    median %6.1f ms, worst %6.1f ms",
        median(main), largest(main)));
}

} // namespace bench
