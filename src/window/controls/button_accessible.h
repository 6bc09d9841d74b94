// SPDX-License-Identifier: MIT
// What a screen reader meets of buttons and check boxes.
#pragma once

#include <QAccessible>

namespace window {

/// The interface of a CommandButton or a CheckView, nothing for other objects. To be installed as a
/// factory before the first window.
QAccessibleInterface* buttonAccessible(const QString& className, QObject* object);

} // namespace window
