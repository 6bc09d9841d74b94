// SPDX-License-Identifier: MIT
// Text that a control shows, as a screen reader meets it.
#pragma once

#include <QAccessibleInterface>

namespace window {

/// A text without caret and selection: all of it is shown at once, in one place.
class ShownText : public QAccessibleTextInterface {
public:
    QString text(int start, int end) const override { return shown().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(shown().size()); }
    QRect characterRect(int /*offset*/) const override { return place(); }
    int offsetAtPoint(const QPoint& point) const override {
        return place().contains(point) ? 0 : -1;
    }
    QString attributes(int /*offset*/, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }
    void scrollToSubstring(int /*start*/, int /*end*/) override { }
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int /*start*/, int /*end*/) override { }
    void removeSelection(int /*index*/) override { }
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override { }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override { }

protected:
    virtual QString shown() const = 0;
    /// In pixels of the screen.
    virtual QRect place() const = 0;
};

} // namespace window
