// SPDX-License-Identifier: MIT
// Makes the interfaces known to the toolkit.
#include "window/accessible.h"

#include "window/controls/button_accessible.h"
#include "window/controls/family_accessible.h"
#include "window/controls/text_box_accessible.h"
#include "window/forms/water_surface.h"
#include "window/grid/grid_accessible.h"
#include "window/tableau/pad_accessible.h"
#include "window/tableau/tableau_accessible.h"

#include <QAccessibleWidget>

namespace window {

namespace {

/// The toolkit tells a frame as a window's.
QAccessibleInterface* pictureAccessible(const QString& /*className*/, QObject* object) {
    auto* surface = qobject_cast<WaterSurface*>(object);
    return surface ? new QAccessibleWidget(surface, QAccessible::Graphic) : nullptr;
}

} // namespace

void installAccessible() {
    for (const auto factory : {buttonAccessible, familyAccessible, textBoxAccessible, padAccessible,
             tableauAccessible, gridAccessible, pictureAccessible})
        QAccessible::installFactory(factory);
}

} // namespace window
