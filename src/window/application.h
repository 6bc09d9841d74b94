// SPDX-License-Identifier: MIT
// The program as a whole: state, surroundings and windows.
#pragma once

#include "desktop/desktop.h"
#include "forms/program.h"
#include "window/controls/held_keys.h"
#include "window/forms/info_window.h"
#include "window/forms/main_window.h"
#include "window/forms/progress_window.h"
#include "window/forms/start_window.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <string_view>

namespace window {

/// The toolkit's part of the program, with what holds for every event: one press of a key is one
/// action, the desktop's fonts and colours don't take hold, and no exception gets out of a handler,
/// for the toolkit couldn't bear it; an event that runs out of memory is dropped.
class Toolkit final : public QApplication {
public:
    Toolkit(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;

private:
    HeldKeys heldKeys_;
    bool holding_ = false; ///< the style, against the desktop's
};

/// Owns everything and keeps the windows in line with their forms: a window comes when its form is
/// first shown and goes when the form is unloaded. All views look at their models at most once per
/// turn of the event loop, or of a long run, and per frame.
class Application : public QObject {
    Q_OBJECT

public:
    /// `version` is major.minor.revision.
    explicit Application(std::string_view version);

    /// Shows the splash and serves events until the program ends. The process's exit code.
    int run();

private:
    bool refreshIfDue();
    void refreshInTime();
    void refresh();
    QWidget* questionOwner() const;

    forms::Program program_;
    desktop::RealPlatform platform_;
    Session session_;
    std::unique_ptr<StartWindow> start_;
    std::unique_ptr<MainWindow> main_;
    // Children of the main window by the toolkit's rules too, so they must go before it.
    std::unique_ptr<ProgressWindow> progress_;
    std::unique_ptr<InfoWindow> info_;
    QElapsedTimer sinceRefresh_;
    QTimer nextFrame_;
    bool refreshing_ = false;
};

} // namespace window
