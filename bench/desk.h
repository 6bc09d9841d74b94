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

class QProgressBar;

namespace bench {

/// What a run took, from the answer to its question until its last row stood on screen.
struct RunTimes {
    double cpu = 0; ///< of the window's thread
    double wall = 0;
};

/// Works the program as a user does: through its widgets and dialogs.
class Desk {
public:
    explicit Desk(window::MainWindow& main);

    /// `answered` is called when the file has been chosen.
    RunTimes load(
        const std::string& file, const std::function<void()>& answered = [] {});
    RunTimes draw(std::int64_t count);
    /// The same for runs that end early; `ended` is called at the moment they have.
    void loadInPart(const std::string& file, const std::function<void()>& ended);
    void drawInPart(std::int64_t count, const std::function<void()>& ended);
    void press(int button); ///< 0 undo, 1 reset
    /// Serves events until `done`, frames included. False after 60 seconds.
    bool until(const std::function<bool()>& done);
    /// Until all that has happened is on screen.
    void settle();

    window::MainWindow& main() { return main_; }
    window::GridView& view() { return *view_; }
    std::int64_t rows() const { return view_->grid().RowCount(); }
    /// The counts that stand in the tableau's badges.
    Counts counters() const;
    /// The open progress dialog, or null.
    static window::ProgressWindow* progress();

private:
    bool lastRowShown() const;
    void untilPainted();

    window::MainWindow& main_;
    window::GridView* view_;
    window::TableauView* tableau_;
};

/// Starts the program and lets `script` work it once the main window is there.
void atDesk(QApplication& application, const std::function<void(Desk&)>& script);

} // namespace bench
