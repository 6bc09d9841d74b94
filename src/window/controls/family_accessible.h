// SPDX-License-Identifier: MIT
// What a screen reader meets of the selector of the chance families.
#pragma once

#include <QAccessible>

namespace window {

/// The interface of a FamilyBox or its list, null for any other object. To be installed as a
/// factory.
QAccessibleInterface* familyAccessible(const QString& className, QObject* object);

} // namespace window
