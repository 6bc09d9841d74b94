// SPDX-License-Identifier: MIT
// What a widget promises to paint it paints to the last pixel of the screen, at any scale.
#include "support/stage.h"
#include "window/controls/picture_box.h"
#include "window/forms/info_window.h"
#include "window/forms/main_window.h"
#include "window/forms/progress_window.h"
#include "window/forms/start_window.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

namespace {

constexpr QRgb Signal = 0xFF01FE02;

/// Paints whatever the toolkit lets it.
class Flood : public QWidget {
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter(this).fillRect(rect().adjusted(-9, -9, 9, 9), Qt::black);
    }
};

QImage drawn(QWidget& widget, const QPoint& place, qreal scale) {
    const QPoint corner = place + widget.rect().bottomRight() + QPoint(9, 9);
    QImage image((QSizeF(corner.x(), corner.y()) * scale).toSize(), QImage::Format_RGB32);
    image.fill(Signal);
    image.setDevicePixelRatio(scale);
    widget.render(&image, place, {}, QWidget::DrawChildren);
    return image;
}

/// How many pixels that it could have painted a widget leaves bare.
int bare(QWidget& widget, const QPoint& place, qreal scale) {
    Flood flood;
    flood.resize(widget.size());
    const QImage most = drawn(flood, place, scale);
    const QImage is = drawn(widget, place, scale);
    int count = 0;
    for (int y = 0; y < is.height(); ++y)
        for (int x = 0; x < is.width(); ++x)
            count += is.pixel(x, y) == Signal && most.pixel(x, y) != Signal ? 1 : 0;
    return count;
}

TEST(PixelsTest, OpaqueWidgetsAndPicturesLeaveNoPixelBareAtAnyScale) {
    support::Stage stage;
    const window::Session session{stage.program, stage.platform};
    window::MainWindow main(session);
    window::InfoWindow info(session, nullptr);
    window::ProgressWindow progress(session, nullptr);
    window::StartWindow splash(session);
    stage.click(17);
    main.refresh();
    int claims = 0;
    for (QWidget* window : std::initializer_list<QWidget*>{&main, &info, &progress, &splash})
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            if (!widget->testAttribute(Qt::WA_OpaquePaintEvent)
                && dynamic_cast<window::PictureBox*>(widget) == nullptr)
                continue;
            ++claims;
            for (int step = 0; step <= 40; ++step)
                for (const QPoint& place : {QPoint(0, 0), QPoint(9, 49), QPoint(3, 7)})
                    EXPECT_EQ(bare(*widget, place, 1 + step / 20.0), 0)
                        << widget->metaObject()->className() << " at scale " << 1 + step / 20.0
                        << ", " << place.x();
        }
    EXPECT_GE(claims, 5);
}

} // namespace
