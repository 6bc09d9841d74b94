// SPDX-License-Identifier: MIT
// The real surroundings, all in one.
#pragma once

#include "window/clock.h"
#include "window/dialogs.h"
#include "window/events.h"
#include "window/files.h"
#include "window/processes.h"
#include "window/registry.h"
#include "window/sound_device.h"

#include <functional>

class QWidget;

namespace window {

class RealPlatform {
public:
    /// `refresh` lets all views look at their models, `activeWindow` tells the window in front.
    RealPlatform(std::function<void()> refresh, std::function<QWidget*()> activeWindow);

    platform::Platform& platform() { return platform_; }

private:
    Events events_;
    Dialogs dialogs_;
    Files files_;
    Clock clock_;
    SoundDevice sound_;
    Registry registry_;
    Processes processes_;
    platform::Platform platform_;
};

} // namespace window
