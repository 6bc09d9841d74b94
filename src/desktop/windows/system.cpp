// SPDX-License-Identifier: MIT
// Clock, memory, registry and sound, as Windows has them.
#include "desktop/system.h"

#include "desktop/windows/mci_device.h"
#include "desktop/windows/wide.h"

#include <algorithm>
#include <array>

#include <mmsystem.h>

namespace desktop {

namespace {

constexpr std::int64_t UnixEpoch = 116'444'736'000'000'000; // in units of 100 ns since 1601

HKEY toHandle(std::uintptr_t key) {
    return reinterpret_cast<HKEY>(key); // NOLINT(performance-no-int-to-ptr): what the system takes
}

} // namespace

std::chrono::nanoseconds system::coarseTime() {
    FILETIME time{};
    ::GetSystemTimeAsFileTime(&time);
    const std::int64_t ticks = std::int64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    return std::chrono::nanoseconds((ticks - UnixEpoch) * 100);
}

std::uint64_t system::memoryLeft() {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    return ::GlobalMemoryStatusEx(&status) != 0 ? status.ullAvailPageFile
                                                : std::numeric_limits<std::uint64_t>::max();
}

std::unique_ptr<platform::MediaDevice> system::newSoundDevice() {
    return std::make_unique<MciDevice>([](const std::wstring& command) {
        ::mciSendStringW(command.c_str(), nullptr, 0, nullptr);
    });
}

std::optional<platform::Registry::Key> Registry::open(std::uint32_t root, std::string_view name) {
    // The system's own roots are numbers with a sign.
    const auto parent = static_cast<std::uintptr_t>(static_cast<std::int32_t>(root));
    HKEY key = nullptr;
    if (::RegOpenKeyExW(toHandle(parent), wide(name).c_str(), 0, KEY_QUERY_VALUE, &key)
        != ERROR_SUCCESS)
        return std::nullopt;
    return reinterpret_cast<Key>(key);
}

std::optional<std::uint32_t> Registry::query(
    Key key, std::string_view value, std::span<char> buffer, std::size_t& size) {
    std::array<wchar_t, 1024> text{};
    auto* const bytes = reinterpret_cast<BYTE*>(text.data());
    DWORD type = 0;
    DWORD count = sizeof text;
    if (::RegQueryValueExW(toHandle(key), wide(value).c_str(), nullptr, &type, bytes, &count)
        != ERROR_SUCCESS)
        return std::nullopt;
    if (type == static_cast<DWORD>(platform::ValueType::Text)) {
        const int written = ::WideCharToMultiByte(CP_UTF8, 0, text.data(),
            static_cast<int>(count / sizeof(wchar_t)), buffer.data(),
            static_cast<int>(buffer.size()), nullptr, nullptr);
        if (written == 0 && count > 0)
            return std::nullopt;
        size = static_cast<std::size_t>(written);
    } else {
        size = count;
        if (size > buffer.size())
            return std::nullopt;
        std::copy_n(bytes, size, buffer.begin());
    }
    return type;
}

void Registry::close(Key key) {
    ::RegCloseKey(toHandle(key));
}

} // namespace desktop
