// SPDX-License-Identifier: MIT
// A picture stretched to its place.
#pragma once

#include "look/style.h"

#include <QLabel>
#include <QPixmap>

namespace forms::plan {
struct Control;
}

namespace window {

/// Shows one of the program's pictures, equally bright whether the window takes input or not.
class PictureBox : public QLabel {
    Q_OBJECT

public:
    /// Takes its place in `parent`. `name` is what a screen reader calls it.
    PictureBox(look::Picture picture, const forms::plan::Control& control, const QString& name,
        QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    look::Picture picture_;
    QPixmap stretched_; ///< in the screen's pixels
};

} // namespace window
