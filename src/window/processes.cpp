// SPDX-License-Identifier: MIT
// Starting other programs and ending this one.
#include "window/processes.h"

#include "window/style.h"

#include <QCoreApplication>
#include <QProcess>

namespace window {

bool Processes::start(const platform::FileName& program) {
    QProcess process;
    process.setProgram(toText(program));
    // What the other program prints isn't ours to show.
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

void Processes::end() {
    // Leaves all event loops, those of modal dialogs too, each behind the event it is serving.
    QCoreApplication::exit(0);
}

} // namespace window
