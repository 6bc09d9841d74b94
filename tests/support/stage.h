// SPDX-License-Identifier: MIT
// A started program among stand-ins, and what a user does with it.
#pragma once

#include "shell/handlers.h"
#include "support/reference.h"
#include "support/surroundings.h"

#include <string>
#include <vector>

namespace support {

struct Stage {
    Events events;
    Dialogs dialogs;
    Files files;
    Clock clock;
    Media media;
    Registry registry;
    Processes processes;
    platform::Platform platform{events, dialogs, files, clock, media, registry, processes};
    forms::Program program;
    forms::MainForm& main = program.Frm_Main;

    Stage() {
        Frm_Main::Form_Load(program);
        main.Visible = true;
    }

    void click(int number) { Frm_Main::xpLabel_Tableau_Click(program, platform, number); }
    void button(int index) { Frm_Main::xpButton_Click(program, platform, index); }
    void family(int entry) { Frm_Main::xpCombo_Click(program, platform, entry); }
    void check(int index) { Frm_Main::Check_Click(program, platform, index); }
    void undo() { button(0); }
    void reset() { button(1); }
    /// Types a key into the count box; gives what is left of it.
    int key(int code) {
        auto ascii = static_cast<std::int16_t>(code);
        Frm_Main::Text_KeyPress(program, platform, 0, ascii);
        return ascii;
    }
    void draw(const std::string& count) {
        Frm_Main::Text_Change(program, platform, 0, count);
        key(13);
    }
    void load(const std::string& text) {
        files.content["datei.txt"] = text;
        dialogs.chosen = "datei.txt";
        button(2);
    }
    /// What saving writes.
    std::string save() {
        dialogs.chosen = "gespeichert.txt";
        button(3);
        return files.content["gespeichert.txt"];
    }
    void mark(int box, const std::string& answer) {
        dialogs.answer = answer;
        Frm_Main::Text_Click(program, platform, box);
    }
};

/// Everything that is shown or kept, line by line, read through the models.
std::vector<std::string> picture(const forms::Program& program);

/// picture() and the rest of the state: focus, scrolling, what is enabled and open.
std::vector<std::string> state(const forms::Program& program);

/// Nothing, or the first line in which two pictures differ.
std::string difference(const std::vector<std::string>& is, const std::vector<std::string>& wanted);

/// The first line in which a program's picture differs from that of the plain one.
inline std::string differs(const forms::Program& program, const Reference& reference) {
    return difference(picture(program), reference.picture());
}

/// The numbers of the permanence, as the store holds them.
std::vector<int> numbers(const forms::Program& program);

} // namespace support
