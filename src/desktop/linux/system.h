// SPDX-License-Identifier: MIT
// Files, clocks, other programs and what stands for the registry, on this system.
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

class Clock final : public platform::Clock {
public:
    std::chrono::nanoseconds now() override;
    std::chrono::nanoseconds coarse() override;
    double secondsSinceMidnight() override;

private:
    std::int64_t quarterHour_ = -1; ///< of the last look at the time zone, since 1970
    std::int64_t secondsAhead_ = 0; ///< of local time, in that quarter of an hour
};

class Processes final : public platform::Processes {
public:
    bool start(const platform::FileName& program) override;
    /// What the kernel says is available, swap included; without a word from it, no limit.
    std::uint64_t memoryLeft() override;
    void end() override;
};

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
