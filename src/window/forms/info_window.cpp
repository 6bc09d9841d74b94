// SPDX-License-Identifier: MIT
// Builds the info dialog and brings it in line with its model.
#include "window/forms/info_window.h"

#include "forms/plan.h"
#include "info/water.h"
#include "look/style.h"
#include "look/text.h"
#include "shell/handlers.h"
#include "window/controls/buttons.h"
#include "window/controls/fitted_label.h"
#include "window/controls/picture_box.h"
#include "window/forms/water_surface.h"

#include <QCloseEvent>

namespace window {

namespace plan = forms::plan;
using plan::Name;

namespace {

void makeDivider(const plan::Line& line, QWidget* parent) {
    auto* divider = new QWidget(parent);
    const QRect ends = look::toPixels({line.x1, line.y1, line.x2 - line.x1, line.y2 - line.y1});
    divider->setGeometry(ends.left(), ends.top(), ends.width(), line.width);
    QPalette colors;
    colors.setColor(QPalette::Window, look::toColor(controls::Blue));
    divider->setPalette(colors);
    divider->setAutoFillBackground(true);
}

} // namespace

InfoWindow::InfoWindow(const Session& session, QWidget* owner)
    : QDialog(owner,
        Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint
            | Qt::MSWindowsFixedSizeDialogHint),
      session_(session) {
    setWindowTitle(look::toText(plan::InfoCaption));
    setFixedSize(look::toPixels(plan::InfoClient).size());
    for (const plan::Control& control : plan::Info) {
        QWidget* widget = build(control);
        if (control.name == Name::Image1)
            makeDivider(plan::InfoDivider, this);
        if (control.name == Name::cmdOK)
            widget->setFocus();
    }
    refresh();
}

QWidget* InfoWindow::build(const plan::Control& control) {
    switch (control.name) {
    case Name::Image1:
        return new PictureBox(look::Picture::Banner, control, QStringLiteral("Kestrelwood"), this);
    case Name::Picture2:
        return nullptr; // the still picture behind the water is never seen
    case Name::picIcon: {
        auto* surface = new WaterSurface(session_, control, this);
        Unterwassereffekt::createField(
            session_.program, surface->innerWidth(), surface->innerHeight());
        return surface;
    }
    case Name::cmdOK: {
        auto* button = new CommandButton(control, this);
        button->setDefault(true);
        connect(button, &CommandButton::clicked, this, &InfoWindow::reject);
        return button;
    }
    case Name::cmdSysInfo: {
        auto* button = new CommandButton(control, this);
        connect(button, &CommandButton::clicked, this,
            [this] { Frm_Info::cmdSysInfo_Click(session_.program, session_.platform); });
        return button;
    }
    default:
        auto* label
            = new FittedLabel(control, width() - look::toPixels(control.place).left(), this);
        if (control.name == Name::lblVersion)
            version_ = label;
        return label;
    }
}

void InfoWindow::refresh() {
    const forms::InfoForm& form = session_.program.Frm_Info;
    version_->showText(look::toText(form.lblVersion.Caption));
    if (!form.Visible && isVisible()) {
        place_ = pos();
        hide();
    } else if (form.Visible && !isVisible()) {
        if (place_)
            move(*place_);
        show();
    }
    if (form.focusRequests != focusRequests_) {
        focusRequests_ = form.focusRequests;
        raise();
        activateWindow();
    }
}

void InfoWindow::reject() {
    Frm_Info::cmdOK_Click(session_.program, session_.platform);
}

void InfoWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

} // namespace window
