// SPDX-License-Identifier: MIT
// The whole program in this process, and somebody who sits in front of it.
#pragma once

#include "bare_loops.h"
#include "window/application.h"
#include "window/grid/grid_view.h"
#include "window/tableau/tableau_view.h"

#include <QApplication>

#include <functional>
#include <string>

namespace bench {

/// Works the program as a user does: through its widgets and dialogs.
class Desk {
public:
    explicit Desk(window::MainWindow& main);

    /// What a load took of this thread, from the answer to its question until its last row stood
    /// on screen. `answered` is called when the file has been chosen.
    double load(
        const std::string& file, const std::function<void()>& answered = [] {});
    /// Runs that may end early; they return at the moment when the run has ended.
    void startLoad(
        const std::string& file, const std::function<void()>& answered = [] {});
    void startDraw(std::int64_t count);
    void press(int button); ///< 0 undo, 1 reset
    /// Until all that has happened is on screen.
    void settle();

    window::GridView& view() { return view_; }
    std::int64_t rows() const { return view_.grid().RowCount(); }
    /// The counts that stand in the tableau's badges.
    Counts counters() const;
    /// The open progress dialog, or null.
    static window::ProgressWindow* progress();

private:
    bool lastRowShown() const;

    window::MainWindow& main_;
    window::GridView& view_;
    window::TableauView& tableau_;
};

/// Starts the program and lets `script` work it once the main window is there.
void atDesk(QApplication& application, const std::function<void(Desk&)>& script);

} // namespace bench
