// SPDX-License-Identifier: MIT
// The controls' given names as object names, so that a control can be found in a window.
#pragma once

#include "forms/plan.h"

#include <QString>

namespace look {

/// The name of a control as an object name. Members of an array carry their index ("xpButton(3)"),
/// the others stand alone ("cmdOK").
QString controlName(forms::plan::Name name, int index = 0);

} // namespace look
