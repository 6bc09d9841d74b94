// SPDX-License-Identifier: MIT
// What every system does in its own way; linux/ and windows/ fulfil it.
#pragma once

#include "platform/platform.h"

namespace desktop {

namespace system {

/// Opens a regular file. Errors, here and below, carry the system's code, with a few of them made
/// uniform: not_supported means "not a regular file", permission_denied stands for every kind of
/// refusal, no_space_on_device for a used-up quota as well.
std::unique_ptr<platform::Reader> readFile(const platform::FileName& name, std::error_code& error);

/// Writes a temporary file beside the target, which commit() puts in its place. Symbolic links are
/// followed: what they lead to is replaced, they stay. The new file has the permissions of the old
/// one. Needs a folder that can be written to, even if the file can.
std::unique_ptr<platform::Writer> replaceFile(
    const platform::FileName& name, std::error_code& error);

/// The time since 1970 by the clock that is quickest to read.
std::chrono::nanoseconds coarseTime();

/// What the system says is available, swap included; without a word from it, no limit.
std::uint64_t memoryLeft();

/// What plays a melody. Its commands return at once, and nothing waits long for its end.
std::unique_ptr<platform::MediaDevice> newSoundDevice();

} // namespace system

/// The system's registry, or what stands for it.
class Registry final : public platform::Registry {
public:
    std::optional<Key> open(std::uint32_t root, std::string_view name) override;
    std::optional<std::uint32_t> query(
        Key key, std::string_view value, std::span<char> buffer, std::size_t& size) override;
    void close(Key key) override;
};

} // namespace desktop
