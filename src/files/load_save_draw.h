// SPDX-License-Identifier: MIT
// Load, save and random series.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

namespace M_Eingabe {

/// Asks for a file and appends every valid line of it to the permanence. The file is read whole
/// before the first coup: an error while reading brings a message and changes nothing.
void Permanenz_Laden(forms::Program& program, platform::Platform& platform);

/// Asks for a file and writes the permanence to it: a blank, the number, a blank, CR LF per coup.
/// An error brings a message and leaves an old file as it was.
void Permanenz_Speichern(forms::Program& program, platform::Platform& platform);

/// Draws as many coups as the number at the start of the count box says; none for 0 or an empty
/// box. A number beyond 32 bits is refused with a message. The generator is seeded from the clock
/// before every single draw.
void drawSeries(forms::Program& program, platform::Platform& platform);

} // namespace M_Eingabe
