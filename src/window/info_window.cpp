// SPDX-License-Identifier: MIT
// Builds the info dialog and brings it in line with its model.
#include "window/info_window.h"

#include "forms/plan.h"
#include "info/wasser.h"
#include "shell/handlers.h"
#include "window/command_button.h"
#include "window/fitted_label.h"
#include "window/picture_box.h"
#include "window/style.h"
#include "window/water_surface.h"

#include <QCloseEvent>

namespace window {

namespace plan = forms::plan;
using plan::Name;

namespace {

void makeDivider(const plan::Line& line, QWidget* parent) {
    auto* divider = new QWidget(parent);
    const QRect ends = toPixels({line.x1, line.y1, line.x2 - line.x1, line.y2 - line.y1});
    divider->setGeometry(ends.left(), ends.top(), ends.width(), line.width);
    QPalette colors;
    colors.setColor(QPalette::Window, toColor(controls::Blue));
    divider->setPalette(colors);
    divider->setAutoFillBackground(true);
}

} // namespace

InfoWindow::InfoWindow(const Session& session, QWidget* owner)
    : QDialog(owner,
        Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint
            | Qt::MSWindowsFixedSizeDialogHint),
      session_(session) {
    setWindowTitle(toText(plan::InfoCaption));
    setFixedSize(toPixels(plan::InfoClient).size());
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
        return new PictureBox(Picture::Banner, control, QStringLiteral("Kestrelwood"), this);
    case Name::Picture2:
        return nullptr; // the still picture behind the water is never seen
    case Name::picIcon: {
        auto* surface = new WaterSurface(session_, control, this);
        Unterwassereffekt::Feld_Anlegen(session_.programm, surface->breite(), surface->hoehe());
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
            [this] { Frm_Info::cmdSysInfo_Click(session_.programm, session_.platform); });
        return button;
    }
    default:
        auto* label = new FittedLabel(control, width() - toPixels(control.place).left(), this);
        if (control.name == Name::lblVersion)
            version_ = label;
        return label;
    }
}

void InfoWindow::refresh() {
    const forms::InfoForm& form = session_.programm.Frm_Info;
    version_->showText(toText(form.lblVersion.Caption));
    if (!form.Visible && isVisible()) {
        place_ = pos();
        hide();
    } else if (form.Visible && !isVisible()) {
        if (place_)
            move(*place_);
        show();
    }
    if (form.FocusRequests != focusRequests_) {
        focusRequests_ = form.FocusRequests;
        raise();
        activateWindow();
    }
}

void InfoWindow::reject() {
    Frm_Info::cmdOK_Click(session_.programm, session_.platform);
}

void InfoWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

} // namespace window
