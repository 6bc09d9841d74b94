// SPDX-License-Identifier: MIT
// Files and programs, as far as all systems and the toolkit agree on them.
#pragma once

#include "platform/platform.h"

namespace desktop {

class Files final : public platform::Files {
public:
    std::unique_ptr<platform::Reader> open(
        const platform::FileName& name, std::error_code& error) override;
    /// The pointer shows that the program is busy as long as the writer lives.
    std::unique_ptr<platform::Writer> create(
        const platform::FileName& name, std::error_code& error) override;
    bool exists(const platform::FileName& name) override;
    platform::FileName programFolder() override;
};

class Processes final : public platform::Processes {
public:
    bool start(const platform::FileName& program) override;
    std::uint64_t memoryLeft() override;
    void end() override;
};

} // namespace desktop
