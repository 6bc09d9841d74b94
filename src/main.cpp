// SPDX-License-Identifier: MIT
// Starts the program.
#include "window/application.h"

#include <cstdio>
#include <cstdlib>

namespace {

/// Holds while the toolkit looks for a screen. It tells about every way it has tried, and nothing
/// but a failure of them all is fatal to it then.
void tellOfNoScreen(
    QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/) {
    if (type != QtFatalMsg)
        return;
    std::fputs("Kestrelwood: Es ist kein Bildschirm erreichbar.\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

int main(int /*argc*/, char* argv[]) {
    int count = 1; // the program has no command line, the toolkit's own options included
    qInstallMessageHandler(tellOfNoScreen);
    window::Toolkit application(count, argv);
    qInstallMessageHandler(nullptr);
    QApplication::setApplicationName(QStringLiteral("kestrelwood"));
    QApplication::setApplicationVersion(QStringLiteral(KESTRELWOOD_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral(KESTRELWOOD_ID));
    return window::Application(KESTRELWOOD_VERSION).run();
}
