// SPDX-License-Identifier: MIT
// Scrolling a very long permanence: does every way lead to where it should?
#pragma once

#include "desk.h"
#include "harness.h"

namespace bench {

/// Expects the last row in view.
void landing(Report& report, Desk& desk);

} // namespace bench
