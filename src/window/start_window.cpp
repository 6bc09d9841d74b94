// SPDX-License-Identifier: MIT
// Shows the splash and runs its timer.
#include "window/start_window.h"

#include "forms/plan.h"
#include "shell/handlers.h"
#include "window/fitted_label.h"
#include "window/picture_box.h"
#include "window/pictures.h"
#include "window/style.h"

#include <QCloseEvent>
#include <QPainter>
#include <QScreen>

namespace window {

namespace plan = forms::plan;

StartWindow::StartWindow(const Session& session)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), session_(session) {
    setWindowTitle(toText(plan::MainCaption));
    setWindowIcon(programIcon());
    setFixedSize(toPixels(plan::StartClient).size());
    for (const plan::Control& control : plan::Start) {
        if (control.name == plan::Name::Image1)
            new PictureBox(Picture::Banner, control, QStringLiteral("Kestrelwood"), this);
        else
            new FittedLabel(control, toPixels(control.place).width(), this);
    }
    move(screen()->availableGeometry().center() - rect().center());
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(plan::StartInterval);
    connect(
        &timer_, &QTimer::timeout, this, [this] { Frm_Start::Timer1_Timer(session_.programm); });
}

void StartWindow::refresh() {
    const forms::StartForm& form = session_.programm.Frm_Start;
    if (form.Timer1Enabled != timer_.isActive())
        form.Timer1Enabled ? timer_.start() : timer_.stop();
    if (form.Visible != isVisible())
        setVisible(form.Visible);
}

void StartWindow::paintEvent(QPaintEvent* /*event*/) {
    // The picture in front is a pixel narrower than the window. It continues here, so that no line
    // of another colour is left beside it.
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), loadPicture(Picture::Banner, devicePixelRatioF()));
}

void StartWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
}

} // namespace window
