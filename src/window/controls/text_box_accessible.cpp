// SPDX-License-Identifier: MIT
// Interface of the text boxes: each can be pressed, and only one that takes typing can be edited.
#include "window/controls/text_boxes.h"

#include "window/controls/shown_text.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

namespace window {

namespace {

/// The toolkit's own interface offers no press and calls every box editable, a read-only one too.
class TextBoxAccessible : public QAccessibleWidget,
                          public ShownText,
                          public QAccessibleEditableTextInterface {
public:
    explicit TextBoxAccessible(TextBoxView* box)
        : QAccessibleWidget(box, QAccessible::EditableText), box_(*box) { }

    QString text(QAccessible::Text type) const override {
        return type == QAccessible::Value ? shown() : QAccessibleWidget::text(type);
    }
    QString text(int start, int end) const override { return ShownText::text(start, end); }
    void setText(QAccessible::Text type, const QString& text) override {
        if (type != QAccessible::Value)
            QAccessibleWidget::setText(type, text);
        else if (box_.isEnabled() && !box_.isReadOnly())
            box_.setText(text);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = box_.isReadOnly();
        state.editable = !box_.isReadOnly();
        state.selectableText = true;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface && !box_.isReadOnly())
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QStringList actionNames() const override {
        if (!box_.isEnabled())
            return {};
        return {pressAction(), setFocusAction()};
    }
    void doAction(const QString& name) override {
        if (name != pressAction())
            return QAccessibleWidget::doAction(name);
        // Pressing is what Enter does. Posted, as it may open a dialog or start a long run; a
        // closed box drops keys.
        for (const QEvent::Type half : {QEvent::KeyPress, QEvent::KeyRelease})
            QCoreApplication::postEvent(&box_, new QKeyEvent(half, Qt::Key_Return, {}));
    }

    void selection(int /*index*/, int* start, int* end) const override {
        *start = std::max(box_.selectionStart(), 0);
        *end = *start + box_.selectionLength();
    }
    int selectionCount() const override { return box_.hasSelectedText() ? 1 : 0; }
    void addSelection(int start, int end) override { box_.setSelection(start, end - start); }
    void removeSelection(int /*index*/) override { box_.deselect(); }
    void setSelection(int /*index*/, int start, int end) override { addSelection(start, end); }
    int cursorPosition() const override { return box_.cursorPosition(); }
    void setCursorPosition(int position) override { box_.setCursorPosition(position); }
    int offsetAtPoint(const QPoint& point) const override {
        return place().contains(point) ? box_.cursorPositionAt(box_.mapFromGlobal(point)) : -1;
    }

    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void replaceText(int start, int end, const QString& text) override {
        setText(QAccessible::Value, shown().replace(start, end - start, text));
    }

protected:
    QString shown() const override { return box_.text(); }
    QRect place() const override { return rect(); }

private:
    TextBoxView& box_;
};

} // namespace

QAccessibleInterface* textBoxAccessible(const QString& /*className*/, QObject* object) {
    auto* box = qobject_cast<TextBoxView*>(object);
    return box ? new TextBoxAccessible(box) : nullptr;
}

} // namespace window
