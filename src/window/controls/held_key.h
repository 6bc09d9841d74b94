// SPDX-License-Identifier: MIT
// Tells a key that is held down from one that is pressed again.
#pragma once

#include <QKeyEvent>

namespace window {

/// The toolkit marks the presses of a held key as repeats, but can miss it when it is slower than
/// the keyboard. A repeat then still shows: it comes at the very moment of the release before it,
/// which no finger can do.
class HeldKey {
public:
    void released(const QKeyEvent& event) {
        key_ = event.key();
        time_ = event.timestamp();
    }

    /// Whether a press only repeats the one before.
    bool repeats(const QKeyEvent& press) const {
        const bool sameMoment = time_ != 0 && press.timestamp() == time_ && press.key() == key_;
        return press.isAutoRepeat() || sameMoment;
    }

private:
    int key_ = 0;
    quint64 time_ = 0;
};

} // namespace window
