// SPDX-License-Identifier: MIT
// One press of a key is one action, however long the key is held down.
#pragma once

#include <QObject>

class QKeyEvent;

namespace window {

/// Installed on the application, it drops the repeats of a held key before any focus, access key,
/// menu or shortcut can see them, and before a dialog that the key has opened takes them for an
/// answer. Only what scrolls, moves or types repeats.
class HeldKeys final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool repeats(const QKeyEvent& press) const;

    int released_ = 0; ///< the key released last
    quint64 releaseTime_ = 0;
};

} // namespace window
