// SPDX-License-Identifier: MIT
// The way to the desktop's own system information program, through the registry layer.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace info {

inline constexpr std::uint32_t HkeyLocalMachine = 0x80000002;
inline constexpr std::string_view SystemInformationKey
    = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
inline constexpr std::string_view SystemInformationPath = "PATH";

/// Reads the value `SubKeyRef` of the key `KeyName` below `KeyRoot` into `KeyVal`; true if it was
/// found. Every value is cut at its first NUL byte. A number becomes "&h" and its bytes from the
/// last to the first, each in hexadecimal without leading zero. Another type leaves `KeyVal` as it
/// is, a failure empties it. A key that was opened is always closed.
bool GetKeyValue(platform::Registry& registry, std::uint32_t KeyRoot, std::string_view KeyName,
    std::string_view SubKeyRef, std::string& KeyVal);

/// Starts the system information program, or shows that there is none.
void StartSysInfo(platform::Platform& platform);

} // namespace info
