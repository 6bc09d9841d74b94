// SPDX-License-Identifier: MIT
// Plain models of the small controls. They hold what a control shows and nothing of how.
#pragma once

#include "controls/color.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace controls {

struct TextBox {
    std::string Text;
    Color BackColor = WindowBackground;
    Color ForeColor = WindowText;
};

struct CheckBox {
    int Value = 0; ///< 0 off, 1 on
};

struct Combo {
    std::vector<std::string> Items;
    int ListIndex = -1; ///< the selected entry, counted from 0; -1 while there is none

    void AddItem(std::string_view text) { Items.emplace_back(text); }
};

struct ProgressBar {
    double Max = 0;
    double Value = 0;
};

struct Button {
    bool Enabled = true;
};

struct Label {
    std::string Caption;
};

/// Text and background of a cell, in the normal state and in the disabled one.
struct CellColors {
    Color ForeColor = Black;
    Color BackColor = Cloth;
    Color ForeColorDis = Black;
    Color BackColorDis = Cloth;

    friend bool operator==(const CellColors&, const CellColors&) = default;
};

} // namespace controls
