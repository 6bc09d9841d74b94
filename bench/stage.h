// SPDX-License-Identifier: MIT
// The program's logic without a window: real files and a real clock, nobody who looks on.
#pragma once

#include "bare_loops.h"
#include "desktop/linux/clock.h"
#include "desktop/linux/files.h"
#include "shell/handlers.h"
#include "stats/counters.h"

#include <string>

namespace bench {

struct NoEvents final : platform::Events {
    void turn() override { }
    void paint() override { }
};

/// Answers every file dialog with one name.
struct OneFile final : platform::Dialogs {
    std::string name;
    int messages = 0;

    std::optional<platform::FileName> openFile(
        std::string_view, const platform::Filter&, const platform::FileName&) override {
        return name;
    }
    std::optional<platform::FileName> saveFile(
        std::string_view, const platform::Filter&, const platform::FileName&) override {
        return name;
    }
    void message(std::string_view, std::string_view, platform::Icon) override { ++messages; }
    std::string prompt(std::string_view, std::string_view) override { return {}; }
};

struct NoMedia final : platform::MediaDevice {
    void open(const platform::FileName&, std::string_view) override { }
    void play(std::int32_t) override { }
    void stop() override { }
};

struct NoRegistry final : platform::Registry {
    std::optional<Key> open(std::uint32_t, std::string_view) override { return {}; }
    std::optional<std::uint32_t> query(
        Key, std::string_view, std::span<char>, std::size_t&) override {
        return {};
    }
    void close(Key) override { }
};

struct NoProcesses final : platform::Processes {
    bool start(const platform::FileName&) override { return false; }
    void end() override { }
};

/// A started program and what a user does with it.
class Stage {
public:
    Stage() { Frm_Main::Form_Load(program); }

    void click(int number) { Frm_Main::xpLabel_Tableau_Click(program, platform_, number); }
    void undo() { Frm_Main::xpButton_Click(program, platform_, 0); }
    void reset() { Frm_Main::xpButton_Click(program, platform_, 1); }
    void load(const std::string& file) {
        dialogs_.name = file;
        Frm_Main::xpButton_Click(program, platform_, 2);
    }
    void save(const std::string& file) {
        dialogs_.name = file;
        Frm_Main::xpButton_Click(program, platform_, 3);
    }
    void draw(std::int64_t count) {
        Frm_Main::Text_Change(program, platform, 0, std::to_string(count));
        std::int16_t enter = 13;
        Frm_Main::Text_KeyPress(program, platform_, 0, enter);
    }
    void family(int entry) { Frm_Main::xpCombo_Click(program, platform_, entry); }

    const controls::Grid& view() const { return program.Frm_Main.Grid[0]; }
    int messages() const { return dialogs_.messages; }

    /// What the counters say.
    Counts counters() const {
        Counts counts;
        for (int number = 0; number < 37; ++number)
            counts.push_back(M_Chancen::Anz_Plein(program, number));
        return counts;
    }
    /// What the rows of the store say.
    Counts recount() const {
        Counts counts(37);
        const controls::Grid& store = program.Frm_Main.Grid[1];
        for (std::int64_t row = 1; row <= store.RowCount(); ++row)
            ++counts[static_cast<std::size_t>(
                std::stoi(std::string(store.pattern(store.patternOf(row)).Cell(2))))];
        return counts;
    }

    forms::Program program;

private:
    NoEvents events_;
    OneFile dialogs_;
    desktop::Files files_;
    desktop::Clock clock_;
    NoMedia media_;
    NoRegistry registry_;
    NoProcesses processes_;
    platform::Platform platform_{events_, dialogs_, files_, clock_, media_, registry_, processes_};
};

} // namespace bench
