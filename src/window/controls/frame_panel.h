// SPDX-License-Identifier: MIT
// A captioned container: the look of the window's three panels.
#pragma once

#include "forms/plan.h"

#include <QColor>
#include <QFont>
#include <QGroupBox>

namespace window {

/// A rounded border with the caption cut into its upper edge. What stands inside is placed by the
/// plan, relative to the panel's corner.
class FramePanel : public QGroupBox {
    Q_OBJECT

public:
    /// Takes its place in `parent`.
    FramePanel(const forms::plan::Control& control, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Kept off setFont() and the palette, which the controls inside would inherit.
    QFont captionFont_;
    QColor captionColor_;
};

} // namespace window
