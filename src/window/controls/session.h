// SPDX-License-Identifier: MIT
// What every view needs: the models to look at and the surroundings to hand to the handlers.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

namespace window {

struct Session {
    forms::Program& program;
    platform::Platform& platform;
};

/// Something on screen that shows a model.
class View {
public:
    virtual ~View() = default;
    /// Looks at the model and repaints what differs from what was drawn last.
    virtual void refresh() = 0;
};

} // namespace window
