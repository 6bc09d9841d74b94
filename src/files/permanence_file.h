// SPDX-License-Identifier: MIT
// The permanence as a text file: one coup per line.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

namespace M_Eingabe {

/// Asks for a file and appends every valid line of it to the permanence. The file is read whole
/// before the first coup: an error while reading gives a message and leaves all as it was.
void Permanenz_Laden(forms::Program& program, platform::Platform& platform);

/// Asks for a file and writes the permanence to it: a blank, the number, a blank, CR LF per coup.
/// An error gives a message and leaves an old file as it was.
void Permanenz_Speichern(forms::Program& program, platform::Platform& platform);

} // namespace M_Eingabe
