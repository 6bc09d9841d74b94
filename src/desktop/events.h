// SPDX-License-Identifier: MIT
// Turns of the toolkit's event queue from inside a handler that is at work.
#pragma once

#include "platform/platform.h"

#include <functional>

namespace desktop {

class Events final : public platform::Events {
public:
    /// `refresh` lets all views look at their models; it runs before each turn.
    explicit Events(std::function<void()> refresh);

    /// Stops early when events keep coming, so that they can't starve the run that gives the turn.
    void turn() override;
    /// Input that comes meanwhile is kept and served by the next full turn.
    void paint() override;

private:
    std::function<void()> refresh_;
};

} // namespace desktop
