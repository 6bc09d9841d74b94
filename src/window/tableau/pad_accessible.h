// SPDX-License-Identifier: MIT
// The number pad for screen readers: a group of 37 buttons.
#pragma once

#include <QString>

class QAccessibleInterface;
class QObject;

namespace window {

/// For QAccessible::installFactory: the interface of a PadView, null for any other object.
QAccessibleInterface* padAccessible(const QString& className, QObject* object);

} // namespace window
