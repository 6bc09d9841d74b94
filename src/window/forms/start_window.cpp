// SPDX-License-Identifier: MIT
// Shows the splash and runs its timer.
#include "window/forms/start_window.h"

#include "forms/plan.h"
#include "look/style.h"
#include "look/text.h"
#include "shell/handlers.h"
#include "window/controls/fitted_label.h"
#include "window/controls/picture_box.h"

#include <QCloseEvent>
#include <QPainter>
#include <QScreen>

namespace window {

namespace plan = forms::plan;

StartWindow::StartWindow(const Session& session)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      session_(session) {
    // A splash by its flags would not tell X11 that it has no frame, and some desktops draw one.
    setAttribute(Qt::WA_X11NetWmWindowTypeSplash);
    setWindowTitle(look::toText(plan::MainCaption));
    setWindowIcon(look::programIcon());
    setFixedSize(look::toPixels(plan::StartClient).size());
    for (const plan::Control& control : plan::Start) {
        if (control.name == plan::Name::Image1)
            new PictureBox(look::Picture::Banner, control, QStringLiteral("Kestrelwood"), this);
        else
            new FittedLabel(control, look::toPixels(control.place).width(), this);
    }
    move(screen()->availableGeometry().center() - rect().center());
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(plan::StartInterval);
    connect(&timer_, &QTimer::timeout, this, [this] { Frm_Start::Timer1_Timer(session_.program); });
}

void StartWindow::refresh() {
    const forms::StartForm& form = session_.program.Frm_Start;
    if (form.timer1Enabled != timer_.isActive())
        form.timer1Enabled ? timer_.start() : timer_.stop();
    if (form.Visible != isVisible())
        setVisible(form.Visible);
}

void StartWindow::paintEvent(QPaintEvent* /*event*/) {
    // The picture in front is a pixel narrower than the window. It continues here, so that no line
    // of another colour is left beside it.
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), look::loadPicture(look::Picture::Banner, devicePixelRatioF()));
}

void StartWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
}

} // namespace window
