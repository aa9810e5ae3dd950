#pragma once

#include "platform/services/DesktopAppearance.h"

#include <QObject>

#include <memory>
#include <optional>

namespace wardlock::window {

/// Light or dark, the size of the text, contrast and motion: the desktop's unless forced. It follows the
/// desktop while it runs: the settings portal first, and where that has no preference, the palette.
class Appearance : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool dark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)
    Q_PROPERTY(double textScale READ textScale NOTIFY changed)

public:
    Appearance();

    bool isDark() const;
    bool highContrast() const { return forcesHighContrast_ || desktopAppearance().highContrast; }
    bool reducedMotion() const { return forcesReducedMotion_ || desktopAppearance().reducedMotion; }
    double textScale() const;
    /// None: as on the desktop.
    void force(std::optional<bool> dark);
    void forceTextScale(std::optional<double> scale);
    void forceHighContrast(bool forced);
    void forceReducedMotion(bool forced);
    bool forcesTextScale() const { return textScale_.has_value(); }
    /// The size of the text that the user chose in the window; it outranks all others. None: theirs.
    void chooseTextScale(std::optional<double> scale);
    const std::optional<double>& chosenTextScale() const { return chosenTextScale_; }
    /// Chooses the next larger or smaller of a few sizes.
    Q_INVOKABLE void enlargeText();
    Q_INVOKABLE void reduceText();
    Q_INVOKABLE void resetText() { chooseTextScale(std::nullopt); }

    /// Gives the desktop a moment to reply, so that the first frame is right already.
    void awaitDesktop();
    /// Ignores the desktop's portal from now on: for pictures that are the same everywhere.
    void ignoreDesktop();

signals:
    void changed();
    /// The user chose another size of the text.
    void textScaleChosen();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    platform::DesktopAppearance desktopAppearance() const {
        return desktop_ ? desktop_->current() : platform::DesktopAppearance();
    }

    std::unique_ptr<platform::DesktopAppearanceMonitor> desktop_;
    std::optional<bool> dark_;
    std::optional<double> textScale_;
    bool forcesHighContrast_ = false;
    bool forcesReducedMotion_ = false;
    std::optional<double> chosenTextScale_;
};

} // namespace wardlock::window
