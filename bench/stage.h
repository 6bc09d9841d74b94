// SPDX-License-Identifier: MIT
// The program's logic without a window: real files and a real clock, nobody who looks on.
#pragma once

#include "bare_loops.h"
#include "desktop/desktop.h"
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

    std::optional<platform::FileName> openFile(
        std::string_view, const platform::Filter&, const platform::FileName&) override {
        return name;
    }
    std::optional<platform::FileName> saveFile(
        std::string_view, const platform::Filter&, const platform::FileName&) override {
        return name;
    }
    void message(std::string_view, std::string_view, platform::Icon) override { }
    std::string prompt(std::string_view, std::string_view) override { return {}; }
};

/// How many rows have each pattern.
inline std::vector<std::int64_t> rowsByPattern(const controls::Grid& grid) {
    std::vector<std::int64_t> rows;
    for (std::int64_t row = 1; row <= grid.RowCount(); ++row) {
        const controls::PatternId id = grid.patternOf(row);
        if (id >= rows.size())
            rows.resize(id + 1);
        ++rows[id];
    }
    return rows;
}

/// A started program and what a user does with it.
class Stage {
public:
    Stage() { Frm_Main::Form_Load(program_); }

    void click(std::int64_t coup) {
        Frm_Main::xpLabel_Tableau_Click(program_, platform_, static_cast<int>(coup * 7 % 37));
    }
    void undo() { Frm_Main::xpButton_Click(program_, platform_, 0); }
    void load(const std::string& file) {
        dialogs_.name = file;
        Frm_Main::xpButton_Click(program_, platform_, 2);
    }
    void draw(std::int64_t count) {
        Frm_Main::Text_Change(program_, platform_, 0, std::to_string(count));
        std::int16_t enter = 13;
        Frm_Main::Text_KeyPress(program_, platform_, 0, enter);
    }
    void family(int entry) { Frm_Main::xpCombo_Click(program_, platform_, entry); }

    const controls::Grid& view() const { return program_.Frm_Main.Grid[0]; }
    std::int64_t rows() const { return view().RowCount(); }

    /// What the counters say.
    Counts counters() const {
        Counts counts{};
        for (int number = 0; std::int64_t & count : counts)
            count = M_Chancen::Anz_Plein(program_, number++);
        return counts;
    }
    /// What the rows of the store say.
    Counts recount() const {
        Counts counts{};
        const controls::Grid& store = program_.Frm_Main.Grid[1];
        const std::vector<std::int64_t> rows = rowsByPattern(store);
        for (controls::PatternId id = 0; id < rows.size(); ++id)
            if (rows[id] > 0)
                counts.at(std::stoul(std::string(store.pattern(id).Cell(2)))) += rows[id];
        return counts;
    }

private:
    forms::Program program_;
    NoEvents events_;
    OneFile dialogs_;
    desktop::RealPlatform real_{[] {}, [] { return nullptr; }};
    platform::Platform platform_{events_, dialogs_, real_.platform().files, real_.platform().clock,
        real_.platform().media, real_.platform().registry, real_.platform().processes};
};

} // namespace bench
