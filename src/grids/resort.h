// SPDX-License-Identifier: MIT
// The full re-sort: every coup placed anew under the selected family and mode.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

namespace M_Permanenz {

/// Empties the marks of every row of the sorted view and places every coup of the store anew, with
/// the progress dialog showing how far it has come. It can't be cancelled; painting gets its turns,
/// input doesn't. Plein and Coup run along and end where they began. A row that memory can't place
/// anew keeps what it had.
void Sortierung_Neu(forms::Program& program, platform::Platform& platform);

} // namespace M_Permanenz
