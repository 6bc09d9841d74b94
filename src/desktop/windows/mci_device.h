// SPDX-License-Identifier: MIT
// Plays through the system's media control interface, which is told what to do in words.
#pragma once

#include "platform/platform.h"

#include <functional>
#include <memory>
#include <string>

namespace desktop {

/// The commands are sent one after the other by a thread of its own: a device belongs to the thread
/// that opened it, and opening one can take seconds. What becomes of a command isn't looked at.
/// Nothing closes the device; the end of the process does.
class MciDevice final : public platform::MediaDevice {
public:
    using Send = std::function<void(const std::wstring& command)>;

    explicit MciDevice(Send send);
    /// What hasn't been sent yet is dropped. Doesn't wait.
    ~MciDevice() override;
    MciDevice(const MciDevice&) = delete;
    MciDevice& operator=(const MciDevice&) = delete;

    void open(const platform::FileName& file, std::string_view deviceType) override;
    void play(std::int32_t position) override;
    void stop() override;

private:
    struct Queue;

    void post(std::initializer_list<std::wstring> commands);

    Send send_;
    std::shared_ptr<Queue> queue_; ///< from the first command on; shared with its thread
};

} // namespace desktop
