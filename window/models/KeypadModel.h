#pragma once

#include "shell/input/SheetInput.h"
#include "shell/screen/Overlay.h"

#include <QObject>

namespace wardlock::window {

/// The keypad over everything, for QML.
class KeypadModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString statusText READ statusText NOTIFY changed)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(int digitCount READ digitCount NOTIFY changed)
    Q_PROPERTY(bool showsEmergency READ showsEmergency NOTIFY changed)
    /// Increases with each failure for which the keypad shakes.
    Q_PROPERTY(int failures READ failures NOTIFY changed)
    Q_PROPERTY(double opacity READ opacity NOTIFY changed)
    Q_PROPERTY(double blurOpacity READ blurOpacity NOTIFY changed)
    /// Whether a fade is running: tick() is then to be called at every frame.
    Q_PROPERTY(bool fading READ isFading NOTIFY changed)
    /// Whether the keypad fades out, or has done so.
    Q_PROPERTY(bool leaving READ isLeaving NOTIFY changed)
    /// Whether a page asks, in words of its own, and not the guard of Settings.
    Q_PROPERTY(bool ofPage READ isOfPage NOTIFY changed)

public:
    KeypadModel(shell::Overlay overlay, shell::SheetInput& input)
        : overlay_(std::move(overlay)), input_(input) {}

    QString statusText() const;
    QString subtitle() const;
    int digitCount() const;
    bool showsEmergency() const;
    int failures() const;
    double opacity() const;
    double blurOpacity() const;
    bool isFading() const;
    bool isLeaving() const { return !overlay_.keypad->takesInput(); }
    bool isOfPage() const { return overlay_.keypad->_statusText() != overlay_.keypad->_defaultStatusText(); }
    bool shows(const shell::Overlay& overlay) const { return overlay_.keypad == overlay.keypad; }

    Q_INVOKABLE void tick() { emit changed(); }
    Q_INVOKABLE void pressDigit(int digit);
    Q_INVOKABLE void pressDelete();
    Q_INVOKABLE void pressCancel();
    Q_INVOKABLE void pressEmergency();

signals:
    void changed();

private:
    shell::Overlay overlay_;
    shell::SheetInput& input_;
};

} // namespace wardlock::window
