// SPDX-License-Identifier: MIT
// A random series of any length, drawn into the permanence.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

namespace M_Eingabe {

/// Draws as many coups as the number at the start of the count box says; none for 0 or an empty
/// box. A number beyond 32 bits is refused with a message. The generator is seeded from the clock
/// before every single draw.
void drawSeries(forms::Program& program, platform::Platform& platform);

} // namespace M_Eingabe
