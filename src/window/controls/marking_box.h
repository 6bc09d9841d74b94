// SPDX-License-Identifier: MIT
// A box for the count by which numbers are marked.
#pragma once

#include "window/controls/text_box_view.h"

namespace window {

/// Can't be typed into: a click, Space or Enter asks for its value.
class MarkingBox final : public TextBoxView {
    Q_OBJECT

public:
    MarkingBox(const Session& session, const forms::plan::Control& control, QWidget* parent);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ask();
};

} // namespace window
