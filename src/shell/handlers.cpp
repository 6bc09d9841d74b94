// SPDX-License-Identifier: MIT
// The event handlers of the forms: each hands its event to the procedure that does the work.
#include "shell/handlers.h"

#include "coup/m_eingabe.h"
#include "coup/m_permanenz.h"
#include "files/meldungen.h"
#include "files/permanenzdatei.h"
#include "files/zufallsserie.h"
#include "grids/auswahl.h"
#include "grids/familientabelle.h"
#include "grids/sortierung_neu.h"
#include "info/sound.h"
#include "info/systeminfo.h"
#include "progress/lauf.h"
#include "shell/m_programmladen.h"
#include "stats/m_markierung.h"

#include <new>
#include <utility>

using forms::Programm;
using platform::Platform;

namespace {

constexpr std::int16_t TicksToMain = 3;
constexpr std::int16_t Backspace = 8;
constexpr std::int16_t Enter = 13;

/// Drops the permanence, unloads all forms and ends the process.
void herunterfahren(Programm& programm, Platform& platform) {
    M_Eingabe::Chancen_Reset(programm);
    programm.Frm_Info = {};
    progress::Form_Unload(programm);
    programm.Frm_Start = {};
    programm.Frm_Main.Visible = false;
    programm.Frm_Main.Loaded = false;
    platform.processes.end();
}

/// Whether the main form takes input: it is not closed to it, and no handler is still at work (a
/// run gives the window turns, and a press may come from outside the window system too).
bool nimmtEingaben(const forms::MainForm& form) {
    return form.Loaded && form.Enabled && !form.InHandler;
}

/// Runs a handler to its end with the main form held: no other handler of it can start. A shutdown
/// asked for meanwhile follows behind.
template <class Handler>
void festhalten(Programm& programm, Platform& platform, Handler handler) {
    forms::MainForm& form = programm.Frm_Main;
    {
        struct Halt {
            bool& held;
            ~Halt() { held = false; }
        } halt{form.InHandler};
        halt.held = true;
        handler();
    }
    if (std::exchange(form.CloseRequested, false))
        herunterfahren(programm, platform);
}

/// Runs one handler of the main form, if the form takes input.
template <class Handler>
void bearbeiten(Programm& programm, Platform& platform, Handler handler) {
    forms::MainForm& form = programm.Frm_Main;
    if (!nimmtEingaben(form))
        return;
    festhalten(programm, platform, [&] {
        try {
            handler();
        } catch (const std::bad_alloc&) {
            // The handler may have closed the form for a run that it couldn't even begin.
            form.Enabled = true;
            progress::Form_Unload(programm);
            files::Meldung_Speicher(platform);
        }
    });
}

bool istMarkierungsfeld(int Index) {
    return Index == 1 || Index == 2;
}

} // namespace

void Frm_Start::Form_Load(Programm& programm) {
    programm.Frm_Start = {};
    programm.Frm_Start.Visible = true;
}

void Frm_Start::Timer1_Timer(Programm& programm) {
    forms::StartForm& form = programm.Frm_Start;
    if (++form.Ticks != TicksToMain)
        return;
    Frm_Main::Form_Load(programm);
    programm.Frm_Main.Visible = true;
    form.Timer1Enabled = false;
    form.Visible = false;
}

void Frm_Main::Form_Load(Programm& programm) {
    M_Eingabe::Chancen_Reset(programm);
    M_ProgrammLaden::Programm_Laden(programm);
    programm.Frm_Main.Loaded = true;
}

void Frm_Main::Form_Unload(Programm& programm, Platform& platform) {
    if (programm.Frm_Main.InHandler)
        programm.Frm_Main.CloseRequested = true;
    else if (programm.Frm_Main.Loaded)
        herunterfahren(programm, platform);
}

void Frm_Main::xpLabel_Tableau_Click(Programm& programm, Platform& platform, int Index) {
    bearbeiten(programm, platform, [&] {
        M_Permanenz::Coup_Aufnehmen(programm, Index);
        programm.Frm_Main.Grid[0].ScrollRow(programm.Frm_Main.Coup);
    });
}

void Frm_Main::xpButton_Click(Programm& programm, Platform& platform, int Index) {
    bearbeiten(programm, platform, [&] {
        switch (Index) {
        case 0:
            return M_Eingabe::Rueckgaengig(programm);
        case 1:
            return M_Eingabe::Chancen_Reset(programm);
        case 2:
            return M_Eingabe::Permanenz_Laden(programm, platform);
        case 3:
            return M_Eingabe::Permanenz_Speichern(programm, platform);
        case 4:
            return M_Markierung::Loeschen(programm, 1);
        case 5:
            return M_Markierung::Loeschen(programm, 2);
        default:
            return;
        }
    });
}

void Frm_Main::M_Laden_Click(Programm& programm, Platform& platform) {
    bearbeiten(programm, platform, [&] { M_Eingabe::Permanenz_Laden(programm, platform); });
}

void Frm_Main::M_Speichern_Click(Programm& programm, Platform& platform) {
    bearbeiten(programm, platform, [&] { M_Eingabe::Permanenz_Speichern(programm, platform); });
}

void Frm_Main::M_Reset_Click(Programm& programm, Platform& platform) {
    bearbeiten(programm, platform, [&] { M_Eingabe::Chancen_Reset(programm); });
}

void Frm_Main::M_Beenden_Click(Programm& programm, Platform& platform) {
    bearbeiten(programm, platform, [&] { Form_Unload(programm, platform); });
}

void Frm_Main::M_Info_Click(Programm& programm, Platform& platform) {
    bearbeiten(programm, platform, [&] {
        Sound::Sound_Oeffnen(platform, platform.files.programFolder() + "/info.mid", 0);
        Sound::Sound_Abspielen(platform, 0);
        forms::InfoForm& info = programm.Frm_Info;
        if (!info.Loaded)
            info.lblVersion.Caption = programm.Version;
        info.Loaded = true;
        info.Visible = true;
        ++info.FocusRequests;
    });
}

void Frm_Main::Check_Click(Programm& programm, Platform& platform, int Index) {
    bearbeiten(programm, platform, [&] {
        if (Index != 0 && Index != 1)
            return;
        int& value = programm.Frm_Main.Check[static_cast<std::size_t>(Index)].Value;
        value = value == 0 ? 1 : 0;
        if (Index == 0)
            M_Permanenz::Sortierung_Neu(programm, platform);
        else
            Auswahl::Gitter_Umschalten(programm);
    });
}

void Frm_Main::xpCombo_Click(Programm& programm, Platform& platform, int ListIndex) {
    bearbeiten(programm, platform, [&] {
        forms::MainForm& form = programm.Frm_Main;
        if (ListIndex == form.xpCombo[0].ListIndex || !grids::familie(ListIndex))
            return;
        form.xpCombo[0].ListIndex = ListIndex;
        form.Enabled = false;
        Auswahl::Familie_Anwenden(programm);
        if (form.Coup > 0)
            M_Permanenz::Sortierung_Neu(programm, platform);
        form.Enabled = true;
        ++form.FocusRequests;
    });
}

void Frm_Main::Text_Click(Programm& programm, Platform& platform, int Index) {
    if (istMarkierungsfeld(Index))
        bearbeiten(programm, platform, [&] { M_Markierung::Abfragen(programm, platform, Index); });
}

void Frm_Main::Text_Change(Programm& programm, int Index, std::string_view text) {
    if (Index == 0 && nimmtEingaben(programm.Frm_Main))
        programm.Frm_Main.Text[0].Text = text;
}

void Frm_Main::Text_KeyPress(
    Programm& programm, Platform& platform, int Index, std::int16_t& KeyAscii) {
    if (Index != 0)
        return;
    if ((KeyAscii > '9' || KeyAscii < '0') && KeyAscii != Backspace && KeyAscii != Enter)
        KeyAscii = 0;
    if (KeyAscii == Enter)
        bearbeiten(programm, platform, [&] { M_Eingabe::Zufallsserie(programm, platform); });
}

void Frm_Progressbar::xpButton_Click(Programm& programm) {
    if (programm.Frm_Progressbar.Visible && programm.Frm_Progressbar.xpButton.Enabled)
        programm.Frm_Progressbar.Abbruch = 1;
}

void Frm_Info::cmdOK_Click(Programm& programm, Platform& platform) {
    Sound::Sound_Stoppen(platform);
    programm.Frm_Info.Visible = false;
}

void Frm_Info::cmdSysInfo_Click(Programm& programm, Platform& platform) {
    // The message that may come is modal for the main form too, unless a run has it held already.
    if (programm.Frm_Main.InHandler)
        Systeminfo::StartSysInfo(platform);
    else
        festhalten(programm, platform, [&] { Systeminfo::StartSysInfo(platform); });
}
