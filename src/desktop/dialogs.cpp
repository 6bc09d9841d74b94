// SPDX-License-Identifier: MIT
// The modal questions, in German under any locale.
#include "desktop/dialogs.h"

#include "look/style.h"
#include "look/text.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTreeView>
#include <QUrl>

#include <utility>

namespace desktop {

namespace {

// The buttons are named here, because the toolkit's own German words are a package that may be
// missing.
QString okText() {
    return QStringLiteral("OK");
}

QString cancelText() {
    return QStringLiteral("Abbrechen");
}

constexpr int TitleButtons = 160; // pixels that a title bar takes beside its text

QString titleOf(std::string_view title) {
    return title.empty() ? QStringLiteral("Kestrelwood") : look::toText(title);
}

QString firstFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

QString toNameFilter(const platform::Filter& filter) {
    const QString name = look::toText(filter.name);
    const QString pattern = QStringLiteral("(%1)").arg(look::toText(filter.pattern));
    return name.endsWith(pattern) ? name : name + u' ' + pattern;
}

/// The toolkit's dialog without its own questions, which would be English without the translations.
/// A name that doesn't exist is accepted for opening too: what opens the file reports the reason.
class FileDialog final : public QFileDialog {
public:
    FileDialog(QWidget* parent, AcceptMode mode, std::string_view title,
        const platform::Filter& filter, const platform::FileName& last)
        : QFileDialog(parent, titleOf(title)), suffix_(look::toText(filter.pattern).remove(u'*')) {
        setOptions(DontUseNativeDialog | DontConfirmOverwrite);
        setFileMode(AnyFile);
        setAcceptMode(mode);
        // The other view writes sizes and dates by the desktop's locale, not by ours.
        setViewMode(List);
        setNameFilter(toNameFilter(filter));
        setLabelText(LookIn,
            mode == AcceptOpen ? QStringLiteral("Suchen in:") : QStringLiteral("Speichern in:"));
        setLabelText(FileName, QStringLiteral("Dateiname:"));
        setLabelText(FileType, QStringLiteral("Dateityp:"));
        setLabelText(
            Accept, mode == AcceptOpen ? QStringLiteral("Öffnen") : QStringLiteral("Speichern"));
        setLabelText(Reject, cancelText());
        startAt(QFileInfo(look::toText(last)));
        letTypedNameWin();
        showPlaces();
        showWholeDates();
    }

    std::optional<platform::FileName> ask() {
        if (exec() != Accepted || chosen().isEmpty())
            return std::nullopt;
        return QDir::toNativeSeparators(chosen()).toStdString();
    }

protected:
    void accept() override {
        const bool replaces = acceptMode() == AcceptSave && QFileInfo(chosen()).isFile();
        if (!replaces || mayReplace(chosen()))
            QFileDialog::accept();
    }

    /// A list of proposals that came up now would keep the window behind from being active again.
    void done(int result) override {
        if (auto* line = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            line != nullptr && line->completer() != nullptr) {
            line->completer()->popup()->hide();
            line->setCompleter(nullptr);
        }
        QFileDialog::done(result);
    }

private:
    /// With the filter's suffix, without which the filter would hide the file from then on; empty
    /// for none. The toolkit itself adds one only to a name without any point.
    QString chosen() const {
        const QString file = selectedFiles().value(0);
        const QFileInfo named(file);
        const bool whole = file.isEmpty() || file.endsWith(suffix_, Qt::CaseInsensitive)
            || named.isDir() || (acceptMode() == AcceptOpen && named.exists());
        return whole ? file : file + suffix_;
    }

    void startAt(const QFileInfo& last) {
        const bool folderExists = !last.filePath().isEmpty() && last.dir().exists();
        setDirectory(folderExists ? last.absolutePath() : firstFolder());
        selectFile(last.fileName());
    }

    /// A selected file would win over a name set other than by keyboard.
    void letTypedNameWin() {
        const auto* line = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* list = findChild<QAbstractItemView*>(QStringLiteral("listView"));
        if (line == nullptr || list == nullptr)
            return;
        connect(line, &QLineEdit::textChanged, list, [this, list](const QString& text) {
            const QStringList files = selectedFiles();
            if (!files.isEmpty() && QFileInfo(files.first()).fileName() != text)
                list->clearSelection();
        });
    }

    void showPlaces() {
        QList<QUrl> places{QUrl(QStringLiteral("file:")), QUrl::fromLocalFile(QDir::homePath())};
        if (const QUrl first = QUrl::fromLocalFile(firstFolder()); !places.contains(first))
            places += first;
        setSidebarUrls(places);
        // The toolkit makes room for the first name only.
        if (auto* bar = findChild<QListView*>(QStringLiteral("sidebar")))
            bar->setMinimumWidth(bar->sizeHintForColumn(0) + 2 * bar->frameWidth());
    }

    void showWholeDates() {
        const auto* details = findChild<QTreeView*>(QStringLiteral("treeView"));
        if (details == nullptr)
            return;
        details->header()->setStretchLastSection(false);
        details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }

    bool mayReplace(const QString& file) {
        QMessageBox box(QMessageBox::Warning, windowTitle(),
            QStringLiteral("Die Datei „%1“ gibt es schon.\nSoll sie ersetzt werden?")
                .arg(QFileInfo(file).fileName()),
            QMessageBox::NoButton, this);
        box.setTextFormat(Qt::PlainText);
        const QPushButton* replace
            = box.addButton(QStringLiteral("Ersetzen"), QMessageBox::AcceptRole);
        box.setDefaultButton(box.addButton(cancelText(), QMessageBox::RejectRole));
        box.exec();
        return box.clickedButton() == replace;
    }

    QString suffix_;
};

} // namespace

Dialogs::Dialogs(std::function<QWidget*()> activeWindow) : activeWindow_(std::move(activeWindow)) {
    // The file dialog would write its size and places to a settings file in the user's home. This
    // program keeps no settings, so the toolkit is sent where it can neither read nor write any.
    // (On Windows, which has no such place, it is built without: packaging/windows/build.sh.)
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

std::optional<platform::FileName> Dialogs::openFile(
    std::string_view title, const platform::Filter& filter, const platform::FileName& last) {
    return FileDialog(activeWindow_(), QFileDialog::AcceptOpen, title, filter, last).ask();
}

std::optional<platform::FileName> Dialogs::saveFile(
    std::string_view title, const platform::Filter& filter, const platform::FileName& last) {
    return FileDialog(activeWindow_(), QFileDialog::AcceptSave, title, filter, last).ask();
}

void Dialogs::message(std::string_view title, std::string_view text, platform::Icon icon) {
    QMessageBox box(icon == platform::Icon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon,
        titleOf(title), look::toText(text), QMessageBox::NoButton, activeWindow_());
    box.setTextFormat(Qt::PlainText); // a file name may hold anything
    box.addButton(okText(), QMessageBox::AcceptRole);
    box.exec();
}

std::string Dialogs::prompt(std::string_view title, std::string_view text) {
    QInputDialog dialog(activeWindow_());
    dialog.setWindowTitle(titleOf(title));
    dialog.setLabelText(look::toText(text));
    dialog.setOkButtonText(okText());
    dialog.setCancelButtonText(cancelText());
    const int titleWidth = dialog.fontMetrics().horizontalAdvance(dialog.windowTitle());
    dialog.resize(dialog.sizeHint().expandedTo(QSize(titleWidth + TitleButtons, 0)));
    return dialog.exec() == QDialog::Accepted ? dialog.textValue().toStdString() : std::string();
}

} // namespace desktop
