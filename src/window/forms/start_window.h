// SPDX-License-Identifier: MIT
// The splash.
#pragma once

#include "window/controls/session.h"

#include <QTimer>
#include <QWidget>

namespace window {

/// Frm_Start: the banner with the program's name, for as long as the program wants it. Clicks, keys
/// and closing do nothing.
class StartWindow final : public QWidget, public View {
    Q_OBJECT

public:
    explicit StartWindow(const Session& session);

    void refresh() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Session session_;
    QTimer timer_;
};

} // namespace window
