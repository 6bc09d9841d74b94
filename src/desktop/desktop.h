// SPDX-License-Identifier: MIT
// The real surroundings, all in one.
#pragma once

#include "desktop/dialogs.h"
#include "desktop/events.h"
#include "desktop/linux/clock.h"
#include "desktop/linux/files.h"
#include "desktop/linux/processes.h"
#include "desktop/linux/registry.h"
#include "desktop/linux/sound_device.h"

#include <functional>

class QWidget;

namespace desktop {

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

} // namespace desktop
