// SPDX-License-Identifier: MIT
// Files and programs, as far as all systems and the toolkit agree on them.
#include "desktop/surroundings.h"

#include "desktop/system.h"
#include "look/text.h"

#include <QCursor>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>

#include <utility>

namespace desktop {

namespace {

/// The pointer of a program that is at work and serves no event. There is none without a screen.
class BusyPointer {
public:
    BusyPointer()
        : shown_(qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr) {
        if (shown_)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer() {
        if (shown_)
            QGuiApplication::restoreOverrideCursor();
    }

private:
    bool shown_;
};

class BusyWriter final : public platform::Writer {
public:
    explicit BusyWriter(std::unique_ptr<platform::Writer> writer) : writer_(std::move(writer)) { }

    std::error_code write(std::string_view bytes) override { return writer_->write(bytes); }
    std::error_code commit() override { return writer_->commit(); }

private:
    const BusyPointer busy_;
    std::unique_ptr<platform::Writer> writer_;
};

} // namespace

std::unique_ptr<platform::Reader> Files::open(
    const platform::FileName& name, std::error_code& error) {
    return system::readFile(name, error);
}

std::unique_ptr<platform::Writer> Files::create(
    const platform::FileName& name, std::error_code& error) {
    auto writer = system::replaceFile(name, error);
    return writer ? std::make_unique<BusyWriter>(std::move(writer)) : nullptr;
}

bool Files::exists(const platform::FileName& name) {
    return QFileInfo::exists(look::toText(name));
}

platform::FileName Files::programFolder() {
    return QCoreApplication::applicationDirPath().toStdString();
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
    return system::memoryLeft();
}

void Processes::end() {
    // Leaves all event loops, those of modal dialogs too, each after the event it is serving.
    QCoreApplication::exit(0);
}

} // namespace desktop
