// SPDX-License-Identifier: MIT
// The window about the program.
#pragma once

#include "window/controls/session.h"

#include <QDialog>
#include <QPoint>

#include <cstdint>
#include <optional>

namespace forms::plan {
struct Control;
}

namespace window {

class FittedLabel;

/// Frm_Info: title, version, banner, rippling picture. Esc, Enter and closing the window count as
/// "OK". The main window stays usable beside it.
class InfoWindow final : public QDialog, public View {
    Q_OBJECT

public:
    /// Loads the form: the water gets its field.
    InfoWindow(const Session& session, QWidget* owner);

    void refresh() override;
    /// What Esc does.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* build(const forms::plan::Control& control);

    Session session_;
    FittedLabel* version_ = nullptr;
    std::optional<QPoint> place_; ///< where it was hidden, to come back there
    std::uint64_t focusRequests_ = 0;
};

} // namespace window
