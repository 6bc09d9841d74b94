// SPDX-License-Identifier: MIT
// The table of the controls' given names.
#include "look/control_names.h"

#include "look/style.h"

#include <array>
#include <string_view>

namespace look {

namespace {

using forms::plan::Name;

struct Row {
    Name name;
    std::string_view text;
    bool array;
};

constexpr std::array rows{
    Row{Name::Frm_Main, "Frm_Main", false},
    Row{Name::xpFrame, "xpFrame", true},
    Row{Name::Label, "Label", true},
    Row{Name::Label1, "Label1", false},
    Row{Name::Text, "Text", true},
    Row{Name::xpButton, "xpButton", true},
    Row{Name::Image1, "Image1", false},
    Row{Name::xpCombo, "xpCombo", true},
    Row{Name::Grid, "Grid", true},
    Row{Name::Check, "Check", true},
    Row{Name::Lbl_Status, "Lbl_Status", false},
    Row{Name::xpProgress, "xpProgress", false},
    Row{Name::picIcon, "picIcon", false},
    Row{Name::lblTitle, "lblTitle", false},
    Row{Name::lblVersion, "lblVersion", false},
    Row{Name::cmdOK, "cmdOK", false},
    Row{Name::cmdSysInfo, "cmdSysInfo", false},
    Row{Name::lblDisclaimer, "lblDisclaimer", true},
};

} // namespace

QString controlName(Name name, int index) {
    for (const Row& row : rows)
        if (row.name == name)
            return row.array ? QStringLiteral("%1(%2)").arg(toText(row.text)).arg(index)
                             : toText(row.text);
    return {};
}

} // namespace look
