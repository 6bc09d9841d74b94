// SPDX-License-Identifier: MIT
// Builds the main window from the plan and connects its controls.
#include "window/forms/main_window.h"

#include "look/style.h"
#include "look/text.h"
#include "shell/handlers.h"
#include "stats/counters.h"
#include "window/controls/buttons.h"
#include "window/controls/family_box.h"
#include "window/controls/fitted_label.h"
#include "window/controls/frame_panel.h"
#include "window/controls/picture_box.h"
#include "window/controls/text_boxes.h"
#include "window/grid/grid_view.h"
#include "window/tableau/pad_view.h"
#include "window/tableau/tableau_view.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QWindow>

#include <algorithm>

namespace window {

namespace plan = forms::plan;
using plan::Name;

namespace {

constexpr int UndoButton = 0;
constexpr int ResetButton = 1;
constexpr int TableauPanel = 3;
constexpr int LabelGap = 2; // pixels between a label and the control after it

/// The frame a window manager usually draws, until the real one is known.
constexpr QMargins LikelyFrame(4, 30, 4, 4);

bool besideEachOther(const controls::Rect& one, const controls::Rect& other) {
    return one.top < other.bottom() && other.top < one.bottom();
}

/// The width in pixels from a label's left edge to what stands after it: the next control, or
/// the panel's edge.
int roomOf(
    const plan::Control& label, std::span<const plan::Control> neighbours, const QWidget& panel) {
    const QRect place = look::toPixels(label.place);
    int end = panel.width();
    for (const plan::Control& other : neighbours)
        if (other.place.left > label.place.left && besideEachOther(label.place, other.place))
            end = std::min(end, look::toPixels(other.place).left());
    return end - LabelGap - place.left();
}

/// A palette whose disabled colours are the usual ones: locking the window for a run then shows no
/// grey flicker.
QPalette evenPalette(QPalette palette) {
    for (int i = 0; i < QPalette::NColorRoles; ++i) {
        const auto role = static_cast<QPalette::ColorRole>(i);
        palette.setBrush(QPalette::Disabled, role, palette.brush(QPalette::Active, role));
    }
    return palette;
}

} // namespace

MainWindow::MainWindow(const Session& session) : session_(session), area_(new QScrollArea(this)) {
    setObjectName(look::controlName(Name::Frm_Main));
    setWindowTitle(look::toText(plan::MainCaption));
    setWindowIcon(look::programIcon());
    setPalette(evenPalette(palette()));
    buildMenu();
    auto* content = new QWidget;
    content->setFixedSize(look::toPixels(plan::MainClient).size());
    buildPanel(plan::rowOf(plan::Panels, Name::xpFrame, 0), plan::Eingabe, content);
    buildPanel(plan::rowOf(plan::Panels, Name::xpFrame, 1), plan::Sortierung, content);
    buildPanel(plan::rowOf(plan::Panels, Name::xpFrame, TableauPanel), plan::Tableau, content);
    area_->setWidget(content);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus);
    setCentralWidget(area_);
    addUndoKey();
    pad_->setFocus();
    refresh();
    fitToScreen();
}

void MainWindow::buildMenu() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("&Datei"));
    addEntry(*file, QStringLiteral("&Laden"), QKeySequence::Open, Frm_Main::M_Laden_Click);
    addEntry(*file, QStringLiteral("&Speichern"), QKeySequence::Save, Frm_Main::M_Speichern_Click);
    addEntry(*file, QStringLiteral("&Reset"), {}, Frm_Main::M_Reset_Click);
    addEntry(*file, QStringLiteral("&Beenden"), {}, Frm_Main::M_Beenden_Click);
    QAction* info = menuBar()->addAction(QStringLiteral("&Info"));
    connect(info, &QAction::triggered, this,
        [this] { Frm_Main::M_Info_Click(session_.program, session_.platform); });
}

void MainWindow::addEntry(
    QMenu& menu, const QString& caption, const QKeySequence& shortcut, Handler handler) {
    QAction* entry = menu.addAction(caption);
    entry->setShortcut(shortcut);
    entry->setMenuRole(QAction::NoRole);
    connect(entry, &QAction::triggered, this,
        [this, handler] { handler(session_.program, session_.platform); });
}

void MainWindow::buildPanel(const plan::Control& panel, Controls controls, QWidget* content) {
    auto* frame = new FramePanel(panel, content);
    if (panel.index == TableauPanel)
        views_.push_back(new TableauView(session_, frame));
    for (const plan::Control& control : controls) {
        QWidget* widget = build(control, controls, frame);
        if (auto* view = dynamic_cast<View*>(widget))
            views_.push_back(view);
    }
}

QWidget* MainWindow::build(const plan::Control& control, Controls neighbours, QWidget* panel) {
    switch (control.name) {
    case Name::Image1:
        return new PictureBox(
            look::Picture::Icon, control, QStringLiteral("Programmsymbol"), panel);
    case Name::xpFrame:
        return pad_ = new PadView(session_, control, panel);
    case Name::Text:
        return buildTextBox(control, panel);
    case Name::xpButton:
        return buildButton(control, panel);
    case Name::xpCombo:
        return new FamilyBox(session_, control, panel);
    case Name::Grid:
        return new GridView(session_.program.Frm_Main.Grid[0], control, panel);
    case Name::Check:
        return new CheckView(session_, control, panel);
    default:
        return buildLabel(control, neighbours, panel);
    }
}

QWidget* MainWindow::buildLabel(const plan::Control& control, Controls neighbours, QWidget* panel) {
    auto* label = new FittedLabel(control, roomOf(control, neighbours, *panel), panel);
    if (control.name == Name::Label && control.index == 4)
        fallen_ = label;
    return label;
}

QWidget* MainWindow::buildTextBox(const plan::Control& control, QWidget* panel) {
    if (control.index == 0)
        return new CountBox(session_, control, panel);
    return new MarkingBox(session_, control, panel);
}

QWidget* MainWindow::buildButton(const plan::Control& control, QWidget* panel) {
    auto* button = new CommandButton(control, panel);
    if (control.index == ResetButton) {
        // A shared key presses neither; reset can't be undone, so it gets none.
        button->setText(button->text().remove(u'&'));
        button->setShortcut({});
    }
    connect(button, &CommandButton::clicked, this, [this, index = control.index] {
        Frm_Main::xpButton_Click(session_.program, session_.platform, index);
    });
    return button;
}

void MainWindow::addUndoKey() {
    // Owned by the content, so that it is locked along with it.
    auto* undo = new QShortcut(QKeySequence::Undo, area_->widget());
    connect(undo, &QShortcut::activated, this,
        [this] { Frm_Main::xpButton_Click(session_.program, session_.platform, UndoButton); });
}

void MainWindow::fitToScreen() {
    const QWindow* frame = windowHandle();
    const QMargins margins
        = frame && !frame->frameMargins().isNull() ? frame->frameMargins() : LikelyFrame;
    const QRect room = screen()->availableGeometry().marginsRemoved(margins);
    QSize size = area_->widget()->size() + QSize(0, menuBar()->sizeHint().height());
    // One pixel more than it takes: at a broken scale a size is rounded to whole screen pixels.
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 1;
    if (size.height() > room.height())
        size.rwidth() += scrollBar;
    if (size.width() > room.width())
        size.rheight() += scrollBar;
    size = size.boundedTo(room.size());
    resize(size);
    const QPoint topLeft = room.center() - QRect(QPoint(), size).center();
    move(topLeft - QPoint(margins.left(), margins.top())); // move() places the frame
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow() || fitted_)
        return;
    // Only now is the frame's size known for sure.
    fitted_ = true;
    if (!isMaximized() && !screen()->availableGeometry().contains(frameGeometry()))
        fitToScreen();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    Frm_Main::Form_Unload(session_.program, session_.platform);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (menuBar()->hasFocus() || !pad_->takeDigit(*event))
        QMainWindow::keyPressEvent(event);
}

void MainWindow::refresh() {
    for (View* view : views_)
        view->refresh();
    fallen_->showText(look::toText(M_Chancen::captionOf(session_.program, Name::Label, 4)));
    refreshLock();
    refreshFocus();
}

void MainWindow::refreshLock() {
    const forms::MainForm& form = session_.program.Frm_Main;
    const bool busy = !form.Enabled || (form.inHandler && session_.program.Frm_Progressbar.Visible);
    if (busy != testAttribute(Qt::WA_SetCursor))
        busy ? setCursor(Qt::WaitCursor) : unsetCursor();
    if (form.Enabled == area_->isEnabled())
        return;
    if (!form.Enabled)
        focusBefore_ = focusWidget();
    area_->setEnabled(form.Enabled);
    menuBar()->setEnabled(form.Enabled);
    // A screen reader asks the entries, not the bar.
    for (QAction* entry : menuBar()->findChildren<QAction*>())
        entry->setEnabled(form.Enabled);
    if (form.Enabled && focusBefore_)
        focusBefore_->setFocus();
}

void MainWindow::refreshFocus() {
    const std::uint64_t requests = session_.program.Frm_Main.focusRequests;
    if (requests == focusRequests_)
        return;
    focusRequests_ = requests;
    // Not over another program that the user has turned to meanwhile.
    if (QGuiApplication::applicationState() == Qt::ApplicationActive)
        activateWindow();
}

} // namespace window
