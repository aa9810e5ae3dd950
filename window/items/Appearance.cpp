#include "window/items/Appearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>

#include <algorithm>

namespace wardlock::window {

namespace {

constexpr double usualDotsPerInch = 96;
constexpr double smallestScale = 0.8;
constexpr double largestScale = 2.5;
/// A desktop that takes longer is followed when it replies; the window does not wait for it.
constexpr std::chrono::milliseconds firstReply{150};

} // namespace

Appearance::Appearance() : desktop_(platform::monitorDesktopAppearance([this] { emit changed(); })) {
    qApp->installEventFilter(this);
}

bool Appearance::isDark() const {
    if (dark_)
        return *dark_;
    if (const auto dark = desktopAppearance().dark)
        return *dark;
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

double Appearance::textScale() const {
    const auto* screen = QGuiApplication::primaryScreen();
    const double scale = textScale_ ? *textScale_
                         : screen   ? screen->logicalDotsPerInch() / usualDotsPerInch
                                    : 1;
    return std::clamp(scale, smallestScale, largestScale);
}

void Appearance::force(std::optional<bool> dark) {
    dark_ = dark;
    emit changed();
}

void Appearance::forceTextScale(std::optional<double> scale) {
    textScale_ = scale;
    emit changed();
}

void Appearance::awaitDesktop() {
    if (desktop_)
        desktop_->waitForFirstReport(firstReply);
}

void Appearance::ignoreDesktop() {
    desktop_.reset();
    emit changed();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange)
        emit changed();
    return QObject::eventFilter(watched, event);
}

} // namespace wardlock::window
