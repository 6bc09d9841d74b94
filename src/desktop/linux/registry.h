// SPDX-License-Identifier: MIT
// Stands for the registry that this platform doesn't have, with the one value worth asking for.
#pragma once

#include "platform/platform.h"

namespace desktop {

/// Holds one key, "SOFTWARE\Microsoft\Shared Tools\MSINFO" below the machine's root, if a program
/// that shows the computer's system information is installed; its value "PATH" is that program.
class Registry final : public platform::Registry {
public:
    std::optional<Key> open(std::uint32_t root, std::string_view name) override;
    std::optional<std::uint32_t> query(
        Key key, std::string_view value, std::span<char> buffer, std::size_t& size) override;
    void close(Key key) override;
};

} // namespace desktop
