// SPDX-License-Identifier: MIT
// The drop-down list of the chance families.
#pragma once

#include "window/controls/session.h"

#include <QComboBox>

namespace forms::plan {
struct Control;
}

class QAccessibleInterface;

namespace window {

/// Shows the selector xpCombo(0). A user's choice goes to the program; what is shown afterwards is
/// what the program made of it. The mouse wheel never chooses while the list is closed: turning it
/// over the box by chance would rebuild the whole view.
class FamilyBox final : public QComboBox, public View {
    Q_OBJECT

public:
    /// Takes its place in `parent`.
    FamilyBox(const Session& session, const forms::plan::Control& control, QWidget* parent);

    void refresh() override;
    /// Hands the choice of an entry to the program.
    void choose(int entry);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const controls::Combo& model() const;

    Session session_;
    std::size_t index_;
};

/// What a screen reader meets of a FamilyBox or its list, null for any other object. A factory for
/// QAccessible.
QAccessibleInterface* familyAccessible(const QString& className, QObject* object);

} // namespace window
