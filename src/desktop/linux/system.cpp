// SPDX-License-Identifier: MIT
// Clocks, other programs, and what stands for the registry.
#include "desktop/linux/system.h"

#include "info/system_info.h"
#include "look/style.h"
#include "look/text.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QString>

#include <algorithm>
#include <array>
#include <ctime>

namespace desktop {

namespace {

constexpr std::int64_t SecondsPerDay = std::int64_t{24} * 60 * 60;
constexpr std::int64_t SecondsPerQuarterHour = std::int64_t{15} * 60;
constexpr double SecondsPerNanosecond = 1e-9;

} // namespace

std::chrono::nanoseconds Clock::now() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

std::chrono::nanoseconds Clock::coarse() {
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

double Clock::secondsSinceMidnight() {
    // The water asks twice per cell, and the time zone is by far the dearest part of the answer.
    // Local time is changed on full quarters of an hour only, so one look at it serves till then.
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const std::int64_t quarterHour = now.tv_sec / SecondsPerQuarterHour;
    if (quarterHour != quarterHour_) {
        std::tm local{};
        if (::localtime_r(&now.tv_sec, &local) != nullptr)
            secondsAhead_ = local.tm_gmtoff;
        quarterHour_ = quarterHour;
    }
    const std::int64_t second = (now.tv_sec + secondsAhead_ + SecondsPerDay) % SecondsPerDay;
    return static_cast<double>(second) + static_cast<double>(now.tv_nsec) * SecondsPerNanosecond;
}

bool Processes::start(const platform::FileName& program) {
    QProcess process;
    process.setProgram(look::toText(program));
    // What the other program prints isn't ours to show.
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

std::uint64_t Processes::memoryLeft() {
    QFile info(QStringLiteral("/proc/meminfo"));
    if (!info.open(QIODevice::ReadOnly))
        return platform::Processes::memoryLeft();
    std::uint64_t kibibytes = 0;
    bool known = false;
    const QList<QByteArray> lines = info.readAll().split('\n');
    for (const QByteArray& line : lines)
        if (line.startsWith("MemAvailable:") || line.startsWith("SwapFree:")) {
            kibibytes += line.simplified().split(' ').value(1).toULongLong();
            known = true;
        }
    return known ? kibibytes * 1024 : platform::Processes::memoryLeft();
}

void Processes::end() {
    // Leaves all event loops, those of modal dialogs too, each after the event it is serving.
    QCoreApplication::exit(0);
}

namespace {

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
