// SPDX-License-Identifier: MIT
// Keeps the windows in line with the state.
#include "window/application.h"

#include "look/style.h"
#include "shell/handlers.h"
#include "window/controls/buttons.h"
#include "window/controls/family_box.h"
#include "window/controls/text_boxes.h"
#include "window/forms/water_surface.h"
#include "window/grid/grid_accessible.h"
#include "window/tableau/pad_view.h"
#include "window/tableau/tableau_view.h"

#include <QAbstractEventDispatcher>
#include <QAccessibleWidget>
#include <QScopedValueRollback>

#include <new>

namespace window {

namespace {

constexpr int FrameTime = 16; // milliseconds

/// Creates or drops a form's window.
template <class Window, class... Owner>
void keep(std::unique_ptr<Window>& window, bool wanted, const Session& session, Owner... owner) {
    if (!wanted)
        window.reset();
    else if (!window)
        window = std::make_unique<Window>(session, owner...);
}

/// The toolkit announces a frame with a wrong role.
QAccessibleInterface* pictureAccessible(const QString& /*className*/, QObject* object) {
    auto* surface = qobject_cast<WaterSurface*>(object);
    return surface ? new QAccessibleWidget(surface, QAccessible::Graphic) : nullptr;
}

} // namespace

Toolkit::Toolkit(int& argc, char** argv) : QApplication(argc, argv) {
    installEventFilter(&heldKeys_);
    look::applyStyle(*this);
    for (const auto factory : {buttonAccessible, familyAccessible, textBoxAccessible, padAccessible,
             tableauAccessible, gridAccessible, pictureAccessible})
        QAccessible::installFactory(factory);
}

bool Toolkit::notify(QObject* receiver, QEvent* event) {
    const bool restyled = (event->type() == QEvent::ApplicationFontChange && receiver == this)
        || (event->type() == QEvent::ThemeChange && receiver->isWindowType());
    try {
        if (restyled && !holding_) {
            const QScopedValueRollback<bool> guard(holding_, true);
            look::holdStyle();
        }
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

Application::Application(std::string_view version)
    : platform_([this] { refreshIfDue(); }, [this] { return questionOwner(); }),
      session_{program_, platform_.platform()} {
    program_.version = version;
    QApplication::setQuitOnLastWindowClosed(false);
    nextFrame_.setSingleShot(true);
    nextFrame_.setTimerType(Qt::PreciseTimer);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
        &Application::refreshInTime);
}

int Application::run() {
    Frm_Start::Form_Load(program_);
    refresh();
    return QApplication::exec();
}

bool Application::refreshIfDue() {
    const bool due = sinceRefresh_.elapsed() >= FrameTime;
    if (due)
        refresh();
    return due;
}

void Application::refreshInTime() {
    const auto left = FrameTime - sinceRefresh_.elapsed();
    try {
        if (!refreshIfDue() && !nextFrame_.isActive())
            nextFrame_.start(static_cast<int>(left)); // waking up is all it has to do
    } catch (const std::bad_alloc&) {
        // Called by the event loop itself, past notify(). The next frame tries again.
    }
}

void Application::refresh() {
    if (refreshing_)
        return;
    const QScopedValueRollback<bool> guard(refreshing_, true);
    const forms::MainForm& form = program_.Frm_Main;
    if (form.loaded) {
        keep(main_, true, session_);
        main_->refresh();
        if (form.Visible && !main_->isVisible())
            main_->show();
        QWidget* owner = main_.get();
        keep(progress_, program_.Frm_Progressbar.Visible, session_, owner);
        keep(info_, program_.Frm_Info.loaded, session_, owner);
    }
    // The splash goes when the main window stands, so that there is always one to see.
    keep(start_, program_.Frm_Start.Visible, session_);
    if (start_)
        start_->refresh();
    if (progress_)
        progress_->refresh();
    if (progress_ && !progress_->isVisible())
        progress_->show();
    if (info_)
        info_->refresh();
    sinceRefresh_.start();
}

QWidget* Application::questionOwner() const {
    // Never the progress dialog: it may go while the question is still open.
    if (info_ && info_->isActiveWindow())
        return info_.get();
    return main_.get();
}

} // namespace window
