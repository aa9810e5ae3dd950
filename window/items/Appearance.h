#pragma once

#include "platform/services/DesktopAppearance.h"

#include <QObject>

#include <memory>
#include <optional>

namespace wardlock::window {

/// Light or dark, the size of the text, contrast and motion: the desktop's unless forced. Follows the desktop
/// while it runs: its settings portal first, and where that has no preference, the palette.
class Appearance : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool dark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)
    Q_PROPERTY(double textScale READ textScale NOTIFY changed)

public:
    Appearance();

    bool isDark() const;
    bool highContrast() const { return look().highContrast; }
    bool reducedMotion() const { return look().reducedMotion; }
    double textScale() const;
    /// None: as the desktop has it.
    void force(std::optional<bool> dark);
    void forceTextScale(std::optional<double> scale);

    /// Gives the desktop a moment to answer, so that the first frame is right already.
    void awaitDesktop();
    /// From now on the desktop's portal has no say: for pictures that are the same everywhere.
    void leaveDesktop();

signals:
    void changed();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    platform::DesktopAppearance look() const {
        return desktop_ ? desktop_->look() : platform::DesktopAppearance();
    }

    std::unique_ptr<platform::DesktopAppearanceMonitor> desktop_;
    std::optional<bool> dark_;
    std::optional<double> textScale_;
};

} // namespace wardlock::window
