// SPDX-License-Identifier: MIT
// A check box that shows its model.
#pragma once

#include "window/controls/session.h"

#include <QCheckBox>

namespace forms::plan {
struct Control;
}

namespace window {

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

} // namespace window
