// SPDX-License-Identifier: MIT
// The roulette layout for screen readers: a group of labels, numbers and counts.
#pragma once

#include <QString>

class QAccessibleInterface;
class QObject;

namespace window {

/// For QAccessible::installFactory: the interface of a TableauView, null for any other object.
QAccessibleInterface* tableauAccessible(const QString& className, QObject* object);

} // namespace window
