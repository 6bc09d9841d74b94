// SPDX-License-Identifier: MIT
// The event handlers of the forms: each hands its event to the procedure that does the work.
#include "shell/handlers.h"

#include "coup/coups.h"
#include "files/load_save_draw.h"
#include "files/messages.h"
#include "grids/families.h"
#include "grids/sorted_view.h"
#include "info/sound.h"
#include "info/system_info.h"
#include "progress/long_run.h"
#include "shell/programm_laden.h"
#include "stats/tableau.h"

#include <new>
#include <utility>

using forms::Program;
using platform::Platform;

namespace {

constexpr std::int16_t TicksToMain = 3;
constexpr std::int16_t Backspace = 8;
constexpr std::int16_t Enter = 13;

/// Drops the permanence, unloads all forms and ends the process.
void shutDown(Program& program, Platform& platform) {
    M_Eingabe::Chancen_Reset(program);
    program.Frm_Info = {};
    progress::Form_Unload(program);
    program.Frm_Start = {};
    program.Frm_Main.Visible = false;
    program.Frm_Main.loaded = false;
    platform.processes.end();
}

/// Whether the main form takes input: it is not closed to it, and no handler is still at work (a
/// run gives the window turns, and a press may come from outside the window system too).
bool takesInput(const forms::MainForm& form) {
    return form.loaded && form.Enabled && !form.inHandler;
}

bool takesInput(const forms::InfoForm& form) {
    return form.Visible && !form.inHandler;
}

/// Holds a form while one of its handlers is at work, so that no other one can start, not even
/// while a message is open.
class Hold {
public:
    explicit Hold(bool& inHandler) : inHandler_(inHandler) { inHandler_ = true; }
    ~Hold() { inHandler_ = false; }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

private:
    bool& inHandler_;
};

/// Runs a handler to its end with the main form held. A shutdown asked for meanwhile is
/// carried out afterwards.
template <class Handler>
void withFormHeld(Program& program, Platform& platform, Handler handler) {
    forms::MainForm& form = program.Frm_Main;
    {
        const Hold hold(form.inHandler);
        handler();
    }
    if (std::exchange(form.closeRequested, false))
        shutDown(program, platform);
}

/// Runs one handler of the main form, if the form takes input.
template <class Handler>
void handle(Program& program, Platform& platform, Handler handler) {
    forms::MainForm& form = program.Frm_Main;
    if (!takesInput(form))
        return;
    withFormHeld(program, platform, [&] {
        try {
            handler();
        } catch (const std::bad_alloc&) {
            // The handler may have closed the form for a run that it couldn't even begin.
            form.Enabled = true;
            progress::Form_Unload(program);
            files::tellOutOfMemory(platform);
        }
    });
}

bool isMarkingBox(int Index) {
    return Index == 1 || Index == 2;
}

} // namespace

void Frm_Start::Form_Load(Program& program) {
    program.Frm_Start = {};
    program.Frm_Start.Visible = true;
}

void Frm_Start::Timer1_Timer(Program& program) {
    forms::StartForm& form = program.Frm_Start;
    if (program.Frm_Main.loaded || ++form.Ticks < TicksToMain)
        return;
    program.Frm_Main = {}; // a tick whose memory failed may have left a part
    Frm_Main::Form_Load(program);
    program.Frm_Main.Visible = true;
    form.timer1Enabled = false;
    form.Visible = false;
}

void Frm_Main::Form_Load(Program& program) {
    M_Eingabe::Chancen_Reset(program);
    M_ProgrammLaden::Programm_Laden(program);
    program.Frm_Main.loaded = true;
}

void Frm_Main::Form_Unload(Program& program, Platform& platform) {
    if (program.Frm_Main.inHandler)
        program.Frm_Main.closeRequested = true;
    else if (program.Frm_Main.loaded)
        shutDown(program, platform);
}

void Frm_Main::xpLabel_Tableau_Click(Program& program, Platform& platform, int Index) {
    handle(program, platform, [&] {
        M_Permanenz::takeCoup(program, Index);
        program.Frm_Main.Grid[0].ScrollRow(program.Frm_Main.Coup);
    });
}

void Frm_Main::xpButton_Click(Program& program, Platform& platform, int Index) {
    handle(program, platform, [&] {
        switch (Index) {
        case 0:
            return M_Eingabe::Rueckgaengig(program);
        case 1:
            return M_Eingabe::Chancen_Reset(program);
        case 2:
            return M_Eingabe::Permanenz_Laden(program, platform);
        case 3:
            return M_Eingabe::Permanenz_Speichern(program, platform);
        case 4:
            return stats::clearMark(program, 1);
        case 5:
            return stats::clearMark(program, 2);
        default:
            return;
        }
    });
}

void Frm_Main::M_Laden_Click(Program& program, Platform& platform) {
    handle(program, platform, [&] { M_Eingabe::Permanenz_Laden(program, platform); });
}

void Frm_Main::M_Speichern_Click(Program& program, Platform& platform) {
    handle(program, platform, [&] { M_Eingabe::Permanenz_Speichern(program, platform); });
}

void Frm_Main::M_Reset_Click(Program& program, Platform& platform) {
    handle(program, platform, [&] { M_Eingabe::Chancen_Reset(program); });
}

void Frm_Main::M_Beenden_Click(Program& program, Platform& platform) {
    handle(program, platform, [&] { Form_Unload(program, platform); });
}

void Frm_Main::M_Info_Click(Program& program, Platform& platform) {
    handle(program, platform, [&] {
        Sound::Sound_Oeffnen(platform, platform.files.programFolder() + "/info.mid", 0);
        Sound::Sound_Abspielen(platform, 0);
        forms::InfoForm& info = program.Frm_Info;
        if (!info.loaded)
            info.lblVersion.Caption = program.version;
        info.loaded = true;
        info.Visible = true;
        ++info.focusRequests;
    });
}

void Frm_Main::Check_Click(Program& program, Platform& platform, int Index) {
    handle(program, platform, [&] {
        if (Index != 0 && Index != 1)
            return;
        int& value = program.Frm_Main.Check[static_cast<std::size_t>(Index)].Value;
        value = value == 0 ? 1 : 0;
        if (Index == 0)
            M_Permanenz::Sortierung_Neu(program, platform);
        else
            grids::toggleLines(program);
    });
}

void Frm_Main::xpCombo_Click(Program& program, Platform& platform, int ListIndex) {
    handle(program, platform, [&] {
        forms::MainForm& form = program.Frm_Main;
        if (ListIndex == form.xpCombo[0].ListIndex || !grids::family(ListIndex))
            return;
        form.xpCombo[0].ListIndex = ListIndex;
        form.Enabled = false;
        grids::applyFamily(program);
        if (form.Coup > 0)
            M_Permanenz::Sortierung_Neu(program, platform);
        form.Enabled = true;
        ++form.focusRequests;
    });
}

void Frm_Main::Text_Click(Program& program, Platform& platform, int Index) {
    if (isMarkingBox(Index))
        handle(program, platform, [&] { stats::askForMark(program, platform, Index); });
}

void Frm_Main::Text_Change(Program& program, Platform& platform, int Index, std::string_view text) {
    if (Index == 0)
        handle(program, platform, [&] { program.Frm_Main.Text[0].Text = text; });
}

void Frm_Main::Text_KeyPress(
    Program& program, Platform& platform, int Index, std::int16_t& KeyAscii) {
    if (Index != 0)
        return;
    if ((KeyAscii > '9' || KeyAscii < '0') && KeyAscii != Backspace && KeyAscii != Enter)
        KeyAscii = 0;
    if (KeyAscii == Enter)
        handle(program, platform, [&] { M_Eingabe::drawSeries(program, platform); });
}

void Frm_Progressbar::xpButton_Click(Program& program) {
    if (program.Frm_Progressbar.Visible && program.Frm_Progressbar.xpButton.Enabled)
        program.Frm_Progressbar.Abbruch = 1;
}

void Frm_Info::cmdOK_Click(Program& program, Platform& platform) {
    if (!takesInput(program.Frm_Info))
        return;
    Sound::Sound_Stoppen(platform);
    program.Frm_Info.Visible = false;
}

void Frm_Info::cmdSysInfo_Click(Program& program, Platform& platform) {
    if (!takesInput(program.Frm_Info))
        return;
    const Hold hold(program.Frm_Info.inHandler);
    // The message that may come is modal for the main form too, unless a run has it held already.
    if (program.Frm_Main.inHandler)
        info::StartSysInfo(platform);
    else
        withFormHeld(program, platform, [&] { info::StartSysInfo(platform); });
}
