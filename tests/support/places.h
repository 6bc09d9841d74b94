// SPDX-License-Identifier: MIT
// Finds a window's controls by their names and holds them against the plan.
#pragma once

#include "look/style.h"
#include "look/text.h"

#include <gtest/gtest.h>

#include <QLabel>

namespace support {

template <class Widget = QWidget>
Widget* find(const QWidget& window, forms::plan::Name name, int index = 0) {
    return window.findChild<Widget*>(look::controlName(name, index));
}

template <std::size_t n>
void expectPlaces(const QWidget& window, const std::array<forms::plan::Control, n>& controls) {
    using forms::plan::Name;
    for (const forms::plan::Control& control : controls) {
        const auto* widget = find(window, control.name, control.index);
        if (control.name == Name::Picture2 || control.name == Name::Grid)
            continue; // never seen; as wide as its columns
        ASSERT_TRUE(widget) << control.caption;
        QRect wanted = look::toPixels(control.place);
        // A label that shows a text grows with it.
        if (const auto* label = qobject_cast<const QLabel*>(widget);
            label && label->pixmap().isNull())
            wanted.setSize(label->size());
        EXPECT_EQ(widget->geometry(), wanted) << control.caption;
    }
}

} // namespace support
