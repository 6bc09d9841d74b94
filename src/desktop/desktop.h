// SPDX-License-Identifier: MIT
// The real surroundings, all in one.
#pragma once

#include "desktop/clock.h"
#include "desktop/dialogs.h"
#include "desktop/surroundings.h"
#include "desktop/system.h"

#include <functional>

class QWidget;

namespace desktop {

/// Turns of the toolkit's event queue from inside a handler that is at work.
class Events final : public platform::Events {
public:
    /// `refresh` lets all views look at their models; it runs before each turn.
    explicit Events(std::function<void()> refresh);

    /// Stops early when events keep coming, so that they can't starve the run that grants the turn.
    void turn() override;
    /// Input that comes meanwhile is kept and served by the next full turn.
    void paint() override;

private:
    std::function<void()> refresh_;
};

class RealPlatform {
public:
    /// `refresh` lets all views look at their models, `activeWindow` returns the window in front.
    RealPlatform(std::function<void()> refresh, std::function<QWidget*()> activeWindow);

    platform::Platform& platform() { return platform_; }

private:
    Events events_;
    Dialogs dialogs_;
    Files files_;
    Clock clock_;
    std::unique_ptr<platform::MediaDevice> sound_ = system::newSoundDevice();
    Registry registry_;
    Processes processes_;
    platform::Platform platform_;
};

} // namespace desktop
