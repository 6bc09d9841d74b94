// SPDX-License-Identifier: MIT
// A text box that shows its model.
#pragma once

#include "window/controls/session.h"

#include <QLineEdit>

namespace forms::plan {
struct Control;
}

namespace window {

/// Shows text and colours of the box `Text(index)`. What a user may do with it is up to the
/// classes derived from it.
class TextBoxView : public QLineEdit, public View {
    Q_OBJECT

public:
    /// Takes its place in `parent`.
    TextBoxView(const Session& session, const forms::plan::Control& control, QWidget* parent);

    void refresh() override;

protected:
    const controls::TextBox& model() const;
    const Session& session() const { return session_; }
    int index() const { return index_; }

private:
    Session session_;
    int index_;
};

} // namespace window
