#include "window/items/Appearance.h"

#include "window/items/TextScale.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>

#include <algorithm>
#include <array>

namespace wardlock::window {

namespace {

constexpr double usualDotsPerInch = 96;
constexpr std::array scalesToChoose{smallestTextScale, 0.9, 1.0, 1.1, 1.25, 1.5, 1.75, 2.0, largestTextScale};
/// A scale computed from dots per inch is seldom one of those above to the last bit.
constexpr double sameScale = 0.01;
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
    const double ofScreen = screen ? screen->logicalDotsPerInch() / usualDotsPerInch : 1;
    for (const auto& scale : {chosenTextScale_, textScale_, desktopAppearance().textScale})
        if (scale)
            return std::clamp(*scale, smallestTextScale, largestTextScale);
    return std::clamp(ofScreen, smallestTextScale, largestTextScale);
}

void Appearance::force(std::optional<bool> dark) {
    dark_ = dark;
    emit changed();
}

void Appearance::forceTextScale(std::optional<double> scale) {
    textScale_ = scale;
    emit changed();
}

void Appearance::forceHighContrast(bool forced) {
    forcesHighContrast_ = forced;
    emit changed();
}

void Appearance::forceReducedMotion(bool forced) {
    forcesReducedMotion_ = forced;
    emit changed();
}

void Appearance::chooseTextScale(std::optional<double> scale) {
    if (scale == chosenTextScale_)
        return;
    chosenTextScale_ = scale;
    emit changed();
    emit textScaleChosen();
}

void Appearance::enlargeText() {
    const double now = textScale() + sameScale;
    const auto larger = std::ranges::upper_bound(scalesToChoose, now);
    if (larger != scalesToChoose.end())
        chooseTextScale(*larger);
}

void Appearance::reduceText() {
    const double now = textScale() - sameScale;
    const auto notSmaller = std::ranges::lower_bound(scalesToChoose, now);
    if (notSmaller != scalesToChoose.begin())
        chooseTextScale(*std::prev(notSmaller));
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
