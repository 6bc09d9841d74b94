// SPDX-License-Identifier: MIT
// The picture under water.
#pragma once

#include "forms/plan.h"
#include "info/water.h"
#include "window/controls/session.h"

#include <QFrame>
#include <QImage>
#include <QTimer>

namespace window {

/// picIcon: a sunken frame with the rippling icon inside. One pass of the animation follows the
/// other at the pace of a screen while the picture can be seen; while it can't, the water rests.
class WaterSurface final : public QFrame, public Unterwassereffekt::Surface {
    Q_OBJECT

public:
    /// Takes its place in `parent`.
    WaterSurface(const Session& session, const forms::plan::Control& control, QWidget* parent);

    int innerWidth() const override;
    int innerHeight() const override;
    void copyCell(int sourceX, int sourceY, int x, int y) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void animate();

    Session session_;
    int fineness_; ///< pixels of the images to one pixel of the plan, in each direction
    QImage source_; ///< the still picture
    QImage surface_;
    QTimer timer_;
};

} // namespace window
