// SPDX-License-Identifier: MIT
// Builds the progress dialog and brings it in line with its model.
#include "window/forms/progress_window.h"

#include "forms/plan.h"
#include "look/style.h"
#include "look/text.h"
#include "progress/long_run.h"
#include "shell/handlers.h"
#include "window/controls/buttons.h"
#include "window/controls/fitted_label.h"

#include <QCloseEvent>
#include <QProgressBar>

#include <algorithm>

namespace window {

namespace plan = forms::plan;

namespace {

constexpr int BarSteps = 10000; // the bar counts in whole numbers, the model doesn't
constexpr int StatusMargin = 8; // pixels

int stepOf(const controls::ProgressBar& bar) {
    if (bar.Max <= 0)
        return 0; // a maximum of 0 would show a bar without end
    return static_cast<int>(BarSteps * std::clamp(bar.Value / bar.Max, 0.0, 1.0));
}

} // namespace

ProgressWindow::ProgressWindow(const Session& session, QWidget* owner)
    : QDialog(owner,
        Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint
            | Qt::MSWindowsFixedSizeDialogHint),
      session_(session) {
    setWindowTitle(look::toText(plan::ProgressCaption));
    setFixedSize(look::toPixels(plan::ProgressClient).size());
    constexpr const plan::Control& status = plan::rowOf(plan::Progress, plan::Name::Lbl_Status);
    constexpr const plan::Control& bar = plan::rowOf(plan::Progress, plan::Name::xpProgress);
    constexpr const plan::Control& button = plan::rowOf(plan::Progress, plan::Name::xpButton);
    status_ = new FittedLabel(
        status, width() - look::toPixels(status.place).left() - StatusMargin, this);
    bar_ = new QProgressBar(this);
    look::applyRow(bar, *bar_);
    bar_->setRange(0, BarSteps);
    bar_->setTextVisible(false);
    button_ = new CommandButton(button, this);
    button_->setAutoDefault(false); // the Enter that started the run must not end it
    connect(button_, &CommandButton::clicked, this,
        [this] { Frm_Progressbar::xpButton_Click(session_.program); });
    refresh();
}

void ProgressWindow::refresh() {
    const forms::ProgressForm& form = session_.program.Frm_Progressbar;
    status_->showText(look::toText(progress::statusText(form.Lbl_Status)));
    bar_->setValue(stepOf(form.xpProgress));
    button_->setEnabled(form.xpButton.Enabled);
}

void ProgressWindow::reject() {
    Frm_Progressbar::xpButton_Click(session_.program);
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

} // namespace window
