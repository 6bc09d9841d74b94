// SPDX-License-Identifier: MIT
// The dialog that shows how far a long run has come.
#pragma once

#include "window/controls/session.h"

#include <QDialog>

class QProgressBar;

namespace window {

class CommandButton;
class FittedLabel;

/// Frm_Progressbar: status line, bar, and the button that cancels the run; Esc and closing the
/// window count as that button. Lives for one run.
class ProgressWindow final : public QDialog, public View {
    Q_OBJECT

public:
    ProgressWindow(const Session& session, QWidget* owner);

    void refresh() override;
    /// What Esc does.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    Session session_;
    FittedLabel* status_ = nullptr;
    QProgressBar* bar_ = nullptr;
    CommandButton* button_ = nullptr;
};

} // namespace window
