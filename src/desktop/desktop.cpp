// SPDX-License-Identifier: MIT
// The real surroundings, all in one.
#include "desktop/desktop.h"

#include <utility>

namespace desktop {

RealPlatform::RealPlatform(std::function<void()> refresh, std::function<QWidget*()> activeWindow)
    : events_(std::move(refresh)), dialogs_(std::move(activeWindow)),
      sound_(SoundSetup::ofThisComputer()), platform_{events_, dialogs_, files_, clock_, sound_,
                                                registry_, processes_} { }

} // namespace desktop
