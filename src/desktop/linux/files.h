// SPDX-License-Identifier: MIT
// Reading files without ever waiting for one, and replacing them so that no moment loses data.
#pragma once

#include "platform/platform.h"

namespace desktop {

/// The files of this computer. Errors carry the system's code, with three of them made uniform:
/// not_supported means "not a regular file", permission_denied stands for every kind of refusal,
/// no_space_on_device for a used-up quota as well.
class Files final : public platform::Files {
public:
    /// From here on a write beyond the process's own size limit is an error, not the program's end.
    Files();

    std::unique_ptr<platform::Reader> open(
        const platform::FileName& name, std::error_code& error) override;
    /// Follows symbolic links: what they lead to is replaced, they stay. The new file has the
    /// permissions of the old one. Needs a folder that can be written to, even if the file can.
    std::unique_ptr<platform::Writer> create(
        const platform::FileName& name, std::error_code& error) override;
    bool exists(const platform::FileName& name) override;
    platform::FileName programFolder() override;
};

} // namespace desktop
