// SPDX-License-Identifier: MIT
// The program's one working window.
#pragma once

#include "forms/plan.h"
#include "window/controls/session.h"

#include <QMainWindow>
#include <QPointer>

#include <cstdint>
#include <span>
#include <vector>

class QMenu;
class QScrollArea;

namespace window {

class FittedLabel;
class PadView;

/// Frm_Main: a menu bar above three panels, whose controls stand where the plan puts them, whatever
/// the window's size; a window too small for them scrolls. It connects the controls to their
/// handlers and holds no rule.
class MainWindow final : public QMainWindow, public View {
    Q_OBJECT

public:
    explicit MainWindow(const Session& session);

    void refresh() override;

protected:
    /// Leaves closing to the program, which may have to end a run first.
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    /// Digits that no other control takes are the pad's.
    void keyPressEvent(QKeyEvent* event) override;

private:
    using Controls = std::span<const forms::plan::Control>;
    using Handler = void (*)(forms::Program&, platform::Platform&);

    void buildMenu();
    void addEntry(
        QMenu& menu, const QString& caption, const QKeySequence& shortcut, Handler handler);
    void buildPanel(const forms::plan::Control& panel, Controls controls, QWidget* content);
    QWidget* build(const forms::plan::Control& control, Controls neighbours, QWidget* panel);
    QWidget* buildLabel(const forms::plan::Control& control, Controls neighbours, QWidget* panel);
    QWidget* buildTextBox(const forms::plan::Control& control, QWidget* panel);
    QWidget* buildButton(const forms::plan::Control& control, QWidget* panel);
    void addUndoKey();
    void fitToScreen();
    void refreshLock();
    void refreshFocus();

    Session session_;
    QScrollArea* area_;
    FittedLabel* fallen_ = nullptr; ///< Label(4)
    PadView* pad_ = nullptr;
    std::vector<View*> views_;
    QPointer<QWidget> focusBefore_; ///< what had the focus when the window was locked
    std::uint64_t focusRequests_ = 0;
    bool fitted_ = false; ///< to the screen, in a frame whose size was known
};

} // namespace window
