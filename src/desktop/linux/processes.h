// SPDX-License-Identifier: MIT
// Starting other programs and ending this one.
#pragma once

#include "platform/platform.h"

namespace desktop {

class Processes final : public platform::Processes {
public:
    bool start(const platform::FileName& program) override;
    /// What the kernel says is available, swap included; without a word from it, no limit.
    std::uint64_t memoryLeft() override;
    void end() override;
};

} // namespace desktop
