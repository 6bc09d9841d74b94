// SPDX-License-Identifier: MIT
// Push buttons and check boxes. A mouse click on one leaves the focus where the user was typing.
#pragma once

#include "forms/plan.h"
#include "window/controls/session.h"

#include <QCheckBox>
#include <QPushButton>

class QAccessibleInterface;

namespace window {

/// The toolkit plays a short animation when a button's access key is hit, clicks after it, and
/// swallows whatever comes meanwhile. This button clicks at once.
class CommandButton : public QPushButton {
    Q_OBJECT

public:
    /// Takes its place in `parent`.
    CommandButton(const forms::plan::Control& control, QWidget* parent);

protected:
    bool event(QEvent* event) override;
};

/// Shows the box `Check(index)`. A click goes to the program, which alone decides whether the box
/// changes.
class CheckView final : public QCheckBox, public View {
    Q_OBJECT

public:
    /// Takes its place in `parent`.
    CheckView(const Session& session, const forms::plan::Control& control, QWidget* parent);

    void refresh() override;

protected:
    /// The whole control, not only its text.
    bool hitButton(const QPoint& point) const override;
    void nextCheckState() override;

private:
    Session session_;
    int index_;
};

/// What a screen reader meets of a CommandButton or a CheckView, null for any other object. A
/// factory for QAccessible.
QAccessibleInterface* buttonAccessible(const QString& className, QObject* object);

} // namespace window
