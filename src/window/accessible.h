// SPDX-License-Identifier: MIT
// What a screen reader meets in place of the toolkit's own interfaces.
#pragma once

namespace window {

/// Installs the interfaces of all controls. To be called before the first window.
void installAccessible();

} // namespace window
