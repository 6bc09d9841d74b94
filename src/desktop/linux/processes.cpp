// SPDX-License-Identifier: MIT
// Starting other programs and ending this one.
#include "desktop/linux/processes.h"

#include "look/style.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

namespace desktop {

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
    // Leaves all event loops, those of modal dialogs too, each behind the event it is serving.
    QCoreApplication::exit(0);
}

} // namespace desktop
