// SPDX-License-Identifier: MIT
// The program's state as lines of text.
#include "progress/long_run.h"
#include "stats/counters.h"
#include "stats/tableau.h"
#include "support/reference.h"
#include "support/stage.h"

namespace support {

namespace {

using forms::plan::Name;

std::string cell(const char* what, int index, const controls::CellColors& c) {
    return joined(what, " ", index, ": ", c.ForeColor, " on ", c.BackColor, ", ", c.ForeColorDis,
        " on ", c.BackColorDis);
}

void rows(std::vector<std::string>& text, const controls::Grid& grid) {
    for (std::int64_t i = 1; i <= grid.RowCount(); ++i) {
        Row row;
        const auto read = grid.Row(i);
        for (int j = 1; j <= grid.ColumnCount(); ++j) {
            row.text[static_cast<std::size_t>(j)] = read.Cell(j);
            row.color[static_cast<std::size_t>(j)] = read.CellColor(j);
        }
        row.rowColor = read.RowColor();
        text.push_back(line(row, grid.ColumnCount()));
    }
}

} // namespace

std::vector<std::string> picture(const forms::Program& program) {
    const forms::MainForm& form = program.Frm_Main;
    std::vector<std::string> text{joined("Coup ", form.Coup, " Plein ", form.Plein, " family ",
        form.xpCombo[0].ListIndex, " codes ", form.Check[0].Value, " lines ",
        form.Grid[0].GridLines, " width ", form.Grid[0].Width)};
    for (const auto& [label, last] :
        std::array<std::pair<Name, int>, 11>{{{Name::XPLabel_N, 0}, {Name::XPLabel_R, 0},
            {Name::XPLabel_P, 0}, {Name::XPLabel_I, 0}, {Name::XPLabel_Ps, 0}, {Name::XPLabel_M, 0},
            {Name::XPLabel_K, 3}, {Name::XPLabel_D, 3}, {Name::XPLabel_TVS, 11},
            {Name::XPLabel_TVP, 14}, {Name::Label, 4}}})
        for (int i = label == Name::Label ? 4 : std::min(last, 1); i <= last; ++i)
            text.push_back(M_Chancen::captionOf(program, label, i));
    for (int n = 0; n <= 36; ++n) {
        text.push_back(joined(M_Chancen::captionOf(program, Name::XPLabel_Plein, n), " in ",
            M_Chancen::badgeColor(program, n)));
        text.push_back(cell("pad", n, M_Tableau::padColors(program, n)));
        text.push_back(cell("tableau", n, M_Tableau::tableauColors(program, n)));
    }
    for (std::size_t i : {1U, 2U})
        text.push_back(joined(
            "box '", form.Text[i].Text, "' ", form.Text[i].BackColor, " ", form.Text[i].ForeColor));
    for (int j = 1; j <= form.Grid[0].ColumnCount(); ++j) {
        const auto& column = form.Grid[0].Column(j);
        text.push_back(
            joined("column '", column.Caption, "' ", column.Width, " ", column.Alignment));
    }
    rows(text, form.Grid[0]);
    rows(text, form.Grid[1]);
    return text;
}

std::vector<std::string> state(const forms::Program& program) {
    const forms::MainForm& form = program.Frm_Main;
    const forms::ProgressForm& run = program.Frm_Progressbar;
    std::vector<std::string> text = picture(program);
    text.push_back(joined(form.loaded, form.Visible, form.Enabled, form.inHandler,
        form.closeRequested, program.Frm_Info.Visible, run.Visible, run.xpButton.Enabled, " ",
        form.focusRequests, " ", form.Grid[0].ScrollRow().count, " ", form.Grid[0].ScrollRow().row,
        " ", form.Check[1].Value, " ", run.Abbruch, " ", program.Frm_Info.focusRequests));
    text.push_back(joined(form.Text[0].Text, "|", form.FileName, "|",
        progress::statusText(run.Lbl_Status), "|", run.xpProgress.Max, "|", run.xpProgress.Value));
    return text;
}

std::string difference(const std::vector<std::string>& is, const std::vector<std::string>& wanted) {
    for (std::size_t i = 0; i < std::max(is.size(), wanted.size()); ++i) {
        const std::string left = i < is.size() ? is[i] : "(no line)";
        const std::string right = i < wanted.size() ? wanted[i] : "(no line)";
        if (left != right)
            return joined("line ", i, "\n is:     ", left, "\n wanted: ", right);
    }
    return {};
}

std::vector<int> numbers(const forms::Program& program) {
    std::vector<int> all;
    const controls::Grid& store = program.Frm_Main.Grid[1];
    for (std::int64_t row = 1; row <= store.RowCount(); ++row)
        all.push_back(std::stoi(store.Row(row).Cell(2)));
    return all;
}

} // namespace support
