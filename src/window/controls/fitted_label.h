// SPDX-License-Identifier: MIT
// A plain label that makes its text fit.
#pragma once

#include "forms/plan.h"

#include <QLabel>

namespace window {

/// A line of text on no ground of its own. It grows to the right as far as its text needs and its
/// neighbours allow; a text that needs more is drawn narrower, then smaller. A screen reader gets
/// the whole text in any case.
class FittedLabel : public QLabel {
    Q_OBJECT

public:
    /// Takes its place in `parent`. `room` is the width in pixels up to the next control.
    FittedLabel(const forms::plan::Control& control, int room, QWidget* parent);

    void showText(const QString& shown);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize planned_;
    int room_;
};

} // namespace window
