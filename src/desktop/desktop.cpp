// SPDX-License-Identifier: MIT
// The real surroundings, all in one.
#include "desktop/desktop.h"

#include <QCoreApplication>

#include <utility>

namespace desktop {

namespace {

constexpr int LongestTurn = 8; // milliseconds

} // namespace

Events::Events(std::function<void()> refresh) : refresh_(std::move(refresh)) { }

void Events::turn() {
    refresh_();
    QCoreApplication::processEvents(QEventLoop::AllEvents, LongestTurn);
}

void Events::paint() {
    refresh_();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, LongestTurn);
}

RealPlatform::RealPlatform(std::function<void()> refresh, std::function<QWidget*()> activeWindow)
    : events_(std::move(refresh)),
      dialogs_(std::move(activeWindow)), platform_{events_, dialogs_, files_, clock_, *sound_,
                                             registry_, processes_} { }

} // namespace desktop
