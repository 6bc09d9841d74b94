// SPDX-License-Identifier: MIT
// The way to the system information program.
#include "info/system_info.h"

#include <algorithm>
#include <array>
#include <new>
#include <optional>
#include <span>

namespace info {

namespace {

constexpr std::size_t BufferSize = 1024;

/// An open key, closed at the end of its life.
class OpenKey {
public:
    OpenKey(platform::Registry& registry, platform::Registry::Key key)
        : registry_(registry), key_(key) { }
    ~OpenKey() { registry_.close(key_); }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

private:
    platform::Registry& registry_;
    platform::Registry::Key key_;
};

std::string numberText(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "&h";
    for (std::size_t i = bytes.size(); i-- > 0;) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte >= 16)
            text += digits[byte / 16];
        text += digits[byte % 16];
    }
    return text;
}

std::optional<std::string> programPath(platform::Platform& platform) {
    std::string value;
    if (GetKeyValue(platform.registry, HkeyLocalMachine, SystemInformationKey,
            SystemInformationPath, value))
        return value;
    if (!GetKeyValue(platform.registry, HkeyLocalMachine,
            R"(SOFTWARE\Microsoft\Shared Tools Location)", "MSINFO", value))
        return std::nullopt;
    value += R"(\MSINFO32.EXE)";
    return platform.files.exists(value) ? std::optional(value) : std::nullopt;
}

} // namespace

bool GetKeyValue(platform::Registry& registry, std::uint32_t KeyRoot, std::string_view KeyName,
    std::string_view SubKeyRef, std::string& KeyVal) {
    const auto key = registry.open(KeyRoot, KeyName);
    if (!key) {
        KeyVal.clear();
        return false;
    }
    const OpenKey open(registry, *key);
    std::array<char, BufferSize> buffer{};
    std::size_t size = 0;
    const auto type = registry.query(*key, SubKeyRef, buffer, size);
    if (!type) {
        KeyVal.clear();
        return false;
    }
    const std::string_view value(buffer.data(), std::min(size, buffer.size()));
    const std::string_view bytes = value.substr(0, value.find('\0'));
    if (*type == static_cast<std::uint32_t>(platform::ValueType::Text))
        KeyVal = bytes;
    else if (*type == static_cast<std::uint32_t>(platform::ValueType::Number))
        KeyVal = numberText(bytes);
    return true;
}

void StartSysInfo(platform::Platform& platform) {
    bool started = false;
    try {
        const auto path = programPath(platform);
        started = path && platform.processes.start(*path);
    } catch (const std::bad_alloc&) {
        // Out of memory counts as: no such program.
    }
    if (!started)
        platform.dialogs.message(
            "", "Systeminformationsprogramm zur Zeit nicht verfügbar.", platform::Icon::None);
}

} // namespace info
