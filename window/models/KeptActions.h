#pragma once

#include "shell/screen/Screen.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <utility>
#include <vector>

namespace wardlock::window {

/// Keeps what assistive technology asks for while a page moves. Taps and keys do not come meanwhile: the
/// window has them wait, too.
class KeptActions {
public:
    /// The screen outlives this object.
    explicit KeptActions(const shell::Screen& screen) : screen_(screen) {}

    /// Does it now, or with deliver(). What is asked of an object that is destroyed before is dropped.
    void perform(QObject& asked, std::function<void()> action);
    /// Does what was kept, up to the next page that moves. To be called when a movement has ended.
    void deliver();

private:
    struct Kept {
        QPointer<QObject> asked;
        std::function<void()> action;
    };

    const shell::Screen& screen_;
    std::vector<Kept> kept_;
};

} // namespace wardlock::window
