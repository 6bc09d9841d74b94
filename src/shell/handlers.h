// SPDX-License-Identifier: MIT
// The event handlers of the four forms, as the window calls them. Each does little but call a
// procedure. A handler of Frm_Main or Frm_Info refuses while the form is closed to input or another
// one of it is at work. Memory that fails in one of Frm_Main that takes input ends in a message.
#pragma once

#include "forms/program.h"
#include "platform/platform.h"

#include <cstdint>
#include <string_view>

namespace Frm_Start {

/// The splash comes up.
void Form_Load(forms::Program& program);

/// The splash's timer, every 500 milliseconds. At the third tick the main window takes over.
void Timer1_Timer(forms::Program& program);

} // namespace Frm_Start

namespace Frm_Main {

/// Prepares an empty permanence; runs before the window is shown.
void Form_Load(forms::Program& program);

/// Shuts the program down: at once, or after the handler that is at work.
void Form_Unload(forms::Program& program, platform::Platform& platform);

/// A coup of the number `Index`, 0 to 36, clicked on the pad.
void xpLabel_Tableau_Click(forms::Program& program, platform::Platform& platform, int Index);

/// 0 undo, 1 reset, 2 load, 3 save, 4 and 5 clear the marking boxes; others do nothing.
void xpButton_Click(forms::Program& program, platform::Platform& platform, int Index);

void M_Laden_Click(forms::Program& program, platform::Platform& platform);
void M_Speichern_Click(forms::Program& program, platform::Platform& platform);
void M_Reset_Click(forms::Program& program, platform::Platform& platform);
void M_Beenden_Click(forms::Program& program, platform::Platform& platform);
void M_Info_Click(forms::Program& program, platform::Platform& platform);

/// The user has changed a check box: 0 "einfache Sortierung", 1 "Gitter an". The handler switches
/// the box's Value itself, so that a refused click leaves the box as it was.
void Check_Click(forms::Program& program, platform::Platform& platform, int Index);

/// The user has chosen entry `ListIndex` of the selector; the same entry again does nothing. The
/// handler sets the selector's ListIndex itself, so that a refused choice leaves it as it was.
void xpCombo_Click(forms::Program& program, platform::Platform& platform, int ListIndex);

/// A click on a text box; 1 and 2 ask for a marking count, 0 does nothing.
void Text_Click(forms::Program& program, platform::Platform& platform, int Index);

/// The text of the count box (Index 0) has become `text`. Refused like any other input while the
/// form is closed to it; the box then shows the old text again.
void Text_Change(
    forms::Program& program, platform::Platform& platform, int Index, std::string_view text);

/// A key typed into a text box, as a character code (8 backspace, 13 Enter). Sets `KeyAscii` to 0
/// if the key is to be dropped; Enter in box 0 starts the random series.
void Text_KeyPress(
    forms::Program& program, platform::Platform& platform, int Index, std::int16_t& KeyAscii);

} // namespace Frm_Main

namespace Frm_Progressbar {

/// "&Abbrechen"; also Esc and closing the dialog. Does nothing while the button is disabled.
void xpButton_Click(forms::Program& program);

} // namespace Frm_Progressbar

namespace Frm_Info {

/// OK; also Esc, Enter and closing the dialog.
void cmdOK_Click(forms::Program& program, platform::Platform& platform);
void cmdSysInfo_Click(forms::Program& program, platform::Platform& platform);

} // namespace Frm_Info
