// SPDX-License-Identifier: MIT
// Starts the program.
#include "window/application.h"

int main(int /*argc*/, char* argv[]) {
    int count = 1; // the program has no command line, the toolkit's own options included
    window::Toolkit application(count, argv);
    QApplication::setApplicationName(QStringLiteral("kestrelwood"));
    QApplication::setApplicationVersion(QStringLiteral(KESTRELWOOD_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral(KESTRELWOOD_ID));
    return window::Application(KESTRELWOOD_VERSION).run();
}
