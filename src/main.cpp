// SPDX-License-Identifier: MIT
// Starts the program.
#include "look/style.h"
#include "window/application.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kestrelwood"));
    QApplication::setApplicationVersion(QStringLiteral(KESTRELWOOD_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral(KESTRELWOOD_ID));
    look::applyStyle(application);
    return window::Application(KESTRELWOOD_VERSION).run();
}
