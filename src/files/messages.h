// SPDX-License-Identifier: MIT
// Error messages.
#pragma once

#include "platform/platform.h"

#include <string>
#include <system_error>

namespace files {

/// Why an operation on a file failed, as a German sentence.
std::string reasonOf(const std::error_code& error);

/// Shows that a file can't be read, and why; the permanence is unchanged.
void tellReadError(
    platform::Platform& platform, const platform::FileName& name, const std::error_code& error);

/// Shows that a file can't be written, and why; an old file of that name is unchanged.
void tellWriteError(
    platform::Platform& platform, const platform::FileName& name, const std::error_code& error);

/// Shows that memory gave out in a run; the coups taken so far are kept.
void tellOutOfMemory(platform::Platform& platform);

/// Shows that a count of draws is too large; nothing was drawn.
void tellCountTooLarge(platform::Platform& platform);

} // namespace files
