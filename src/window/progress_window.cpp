// SPDX-License-Identifier: MIT
// Builds the progress dialog and brings it in line with its model.
#include "window/progress_window.h"

#include "forms/plan.h"
#include "progress/lauf.h"
#include "shell/handlers.h"
#include "window/command_button.h"
#include "window/control_names.h"
#include "window/fitted_label.h"
#include "window/style.h"

#include <QCloseEvent>
#include <QProgressBar>

#include <algorithm>

namespace window {

namespace plan = forms::plan;

namespace {

constexpr int barSteps = 10000; // the bar counts in whole numbers, the model doesn't
constexpr int statusMargin = 8; // pixels

int stepOf(const controls::ProgressBar& bar) {
    if (bar.Max <= 0)
        return 0; // a maximum of 0 would show a bar without end
    return static_cast<int>(barSteps * std::clamp(bar.Value / bar.Max, 0.0, 1.0));
}

} // namespace

ProgressWindow::ProgressWindow(const Session& session, QWidget* owner)
    : QDialog(owner,
        Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint
            | Qt::MSWindowsFixedSizeDialogHint),
      session_(session) {
    setWindowTitle(toText(plan::ProgressCaption));
    setFixedSize(toPixels(plan::ProgressClient).size());
    const plan::Control& status = plan::Progress[0];
    const plan::Control& bar = plan::Progress[1];
    const plan::Control& button = plan::Progress[2];
    status_ = new FittedLabel(status, width() - toPixels(status.place).left() - statusMargin, this);
    bar_ = new QProgressBar(this);
    bar_->setObjectName(controlName(bar.name, bar.index));
    bar_->setGeometry(toPixels(bar.place));
    bar_->setRange(0, barSteps);
    bar_->setTextVisible(false);
    bar_->setAccessibleName(QStringLiteral("Fortschritt"));
    button_ = new CommandButton(button, this);
    button_->setAutoDefault(false); // the Enter that started the run must not end it
    connect(button_, &CommandButton::clicked, this,
        [this] { Frm_Progressbar::xpButton_Click(session_.programm); });
    refresh();
}

void ProgressWindow::refresh() {
    const forms::ProgressForm& form = session_.programm.Frm_Progressbar;
    status_->showText(toText(progress::Statustext(form.Lbl_Status)));
    bar_->setValue(stepOf(form.xpProgress));
    button_->setEnabled(form.xpButton.Enabled);
}

void ProgressWindow::reject() {
    Frm_Progressbar::xpButton_Click(session_.programm);
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

} // namespace window
