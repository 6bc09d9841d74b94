// SPDX-License-Identifier: MIT
// Stands for the registry that this platform doesn't have, with the one value worth asking for.
#include "desktop/linux/registry.h"

#include <QStandardPaths>
#include <QString>

#include <algorithm>
#include <array>

namespace desktop {

namespace {

constexpr std::uint32_t LocalMachine = 0x80000002;
constexpr std::string_view SystemInformationKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
constexpr std::string_view PathValue = "PATH";
constexpr platform::Registry::Key OnlyKey = 1;

/// Programs that show the system's information when started without arguments or privileges. Those
/// that a user installs for just this purpose come before what a desktop brings along.
constexpr std::array Programs{"hardinfo2", "hardinfo", "cpu-x", "kinfocenter"};

/// The full path of the first installed one, or empty.
std::string systemInformation() {
    for (const char* program : Programs) {
        const QString path = QStandardPaths::findExecutable(QString::fromLatin1(program));
        if (!path.isEmpty())
            return path.toStdString();
    }
    return {};
}

} // namespace

std::optional<platform::Registry::Key> Registry::open(std::uint32_t root, std::string_view name) {
    if (root != LocalMachine || name != SystemInformationKey || systemInformation().empty())
        return std::nullopt;
    return OnlyKey;
}

std::optional<std::uint32_t> Registry::query(
    Key key, std::string_view value, std::span<char> buffer, std::size_t& size) {
    if (key != OnlyKey || value != PathValue)
        return std::nullopt;
    const std::string path = systemInformation();
    size = path.size() + 1; // texts end with a NUL
    if (path.empty() || buffer.size() < size)
        return std::nullopt;
    std::copy_n(path.c_str(), size, buffer.begin());
    return static_cast<std::uint32_t>(platform::ValueType::Text);
}

void Registry::close(Key /*key*/) { }

} // namespace desktop
