// SPDX-License-Identifier: MIT
// Clock, memory, and what stands for the registry.
#include "desktop/system.h"

#include "info/system_info.h"

#include <QFile>
#include <QStandardPaths>
#include <QString>

#include <algorithm>
#include <array>
#include <ctime>

namespace desktop {

std::chrono::nanoseconds system::coarseTime() {
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

std::uint64_t system::memoryLeft() {
    constexpr auto Unlimited = std::numeric_limits<std::uint64_t>::max();
    QFile info(QStringLiteral("/proc/meminfo"));
    if (!info.open(QIODevice::ReadOnly))
        return Unlimited;
    std::uint64_t kibibytes = 0;
    bool known = false;
    const QList<QByteArray> lines = info.readAll().split('\n');
    for (const QByteArray& line : lines)
        if (line.startsWith("MemAvailable:") || line.startsWith("SwapFree:")) {
            kibibytes += line.simplified().split(' ').value(1).toULongLong();
            known = true;
        }
    return known ? kibibytes * 1024 : Unlimited;
}

namespace {

// One key, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO" below the machine's root, if a program that
// shows the computer's system information is installed; its value "PATH" is that program.
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
    if (root != info::HkeyLocalMachine || name != info::SystemInformationKey
        || systemInformation().empty())
        return std::nullopt;
    return OnlyKey;
}

std::optional<std::uint32_t> Registry::query(
    Key key, std::string_view value, std::span<char> buffer, std::size_t& size) {
    if (key != OnlyKey || value != info::SystemInformationPath)
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
