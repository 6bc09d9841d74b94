// SPDX-License-Identifier: MIT
// A push button of which every press counts, however quickly the presses come.
#pragma once

#include "forms/plan.h"

#include <QPushButton>

namespace window {

/// The toolkit plays a short animation when a button's access key is hit, clicks behind it, and
/// swallows whatever comes meanwhile. This button clicks at once.
class CommandButton : public QPushButton {
    Q_OBJECT

public:
    /// Takes its place in `parent`.
    CommandButton(const forms::plan::Control& control, QWidget* parent);

protected:
    bool event(QEvent* event) override;
};

} // namespace window
