// SPDX-License-Identifier: MIT
// Turns of the toolkit's event queue from inside a handler that is at work.
#include "desktop/events.h"

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

} // namespace desktop
