// SPDX-License-Identifier: MIT
// What a screen reader meets of the text boxes.
#pragma once

#include <QAccessible>

namespace window {

/// The interface of a TextBoxView, null for any other object. To be installed as a factory.
QAccessibleInterface* textBoxAccessible(const QString& className, QObject* object);

} // namespace window
