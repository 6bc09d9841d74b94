// SPDX-License-Identifier: MIT
// The text boxes: the one for the number of random coups, and the two for marking.
#pragma once

#include "window/controls/session.h"

#include <QLineEdit>

namespace forms::plan {
struct Control;
}

class QAccessibleInterface;

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

/// Takes digits only; Enter starts the random series. The count stays and is selected behind it,
/// and again when the user clicks into the box, so that a new one replaces it. Only typed
/// characters are filtered: whatever moves, deletes, copies or pastes works as in any text box.
class CountBox final : public TextBoxView {
    Q_OBJECT

public:
    CountBox(const Session& session, const forms::plan::Control& control, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool passes(QChar typed) const;

    bool clickedInto_ = false; ///< by the click that is under way
};

/// Can't be typed into: a click, Space or Enter asks for its value.
class MarkingBox final : public TextBoxView {
    Q_OBJECT

public:
    MarkingBox(const Session& session, const forms::plan::Control& control, QWidget* parent);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ask();
};

/// What a screen reader meets of a TextBoxView, null for any other object. A factory for
/// QAccessible.
QAccessibleInterface* textBoxAccessible(const QString& className, QObject* object);

} // namespace window
