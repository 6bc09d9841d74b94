// SPDX-License-Identifier: MIT
// The modal questions, in German under any locale.
#pragma once

#include "platform/platform.h"

#include <functional>

class QFileDialog;
class QWidget;

namespace desktop {

class Dialogs final : public platform::Dialogs {
public:
    /// `activeWindow` returns the window in front, over which a question is to appear; may be null.
    explicit Dialogs(std::function<QWidget*()> activeWindow);

    std::optional<platform::FileName> openFile(std::string_view title,
        const platform::Filter& filter, const platform::FileName& last) override;
    std::optional<platform::FileName> saveFile(std::string_view title,
        const platform::Filter& filter, const platform::FileName& last) override;
    /// An empty title becomes the application's name.
    void message(std::string_view title, std::string_view text, platform::Icon icon) override;
    std::string prompt(std::string_view title, std::string_view text) override;

private:
    std::function<QWidget*()> activeWindow_;
};

} // namespace desktop
