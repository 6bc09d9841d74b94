// SPDX-License-Identifier: MIT
// Starting other programs and ending this one.
#pragma once

#include "platform/platform.h"

namespace window {

class Processes final : public platform::Processes {
public:
    bool start(const platform::FileName& program) override;
    void end() override;
};

} // namespace window
