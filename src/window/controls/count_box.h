// SPDX-License-Identifier: MIT
// The box for the number of random coups.
#pragma once

#include "window/controls/text_box_view.h"

namespace window {

/// Takes digits only; Enter starts the random series. Only typed characters are filtered: whatever
/// moves, deletes, copies or pastes works as in any text box.
class CountBox final : public TextBoxView {
    Q_OBJECT

public:
    CountBox(const Session& session, const forms::plan::Control& control, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    bool passes(QChar typed) const;
};

} // namespace window
