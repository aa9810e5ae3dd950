#include "window/WindowMemory.h"

#include "window/items/Appearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

namespace wardlock::window {

namespace {

constexpr auto placeKey = "window/place";
constexpr auto maximisedKey = "window/maximised";
constexpr auto textScaleKey = "text/scale";
/// Where the desktop has not reported the frame yet: a title bar of the usual height.
constexpr QMargins usualFrame(0, 40, 0, 0);

QSettings storage() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return {folder + QStringLiteral("/wardlock/window.ini"), QSettings::IniFormat};
}

const QScreen& screenOf(QRect place) {
    const auto* there = QGuiApplication::screenAt(place.center());
    return there ? *there : *QGuiApplication::primaryScreen();
}

} // namespace

QRect heldWithin(QRect available, QRect wanted) {
    QRect held({}, wanted.size().boundedTo(available.size()));
    held.moveTo(std::clamp(wanted.left(), available.left(), available.right() - held.width() + 1),
                std::clamp(wanted.top(), available.top(), available.bottom() - held.height() + 1));
    return held;
}

WindowMemory::WindowMemory(QWindow& window, Appearance& appearance)
    : window_(window), appearance_(appearance) {
    restore();
    window_.installEventFilter(this);
    connect(&appearance_, &Appearance::textScaleChosen, this, [this] {
        const auto& scale = appearance_.chosenTextScale();
        auto file = storage();
        if (scale)
            file.setValue(textScaleKey, *scale);
        else
            file.remove(textScaleKey);
    });
}

WindowMemory::~WindowMemory() {
    auto file = storage();
    file.setValue(placeKey, normal_);
    file.setValue(maximisedKey, (window_.windowStates() & Qt::WindowMaximized) != 0);
}

void WindowMemory::restore() {
    const auto file = storage();
    const QRect remembered = file.value(placeKey).toRect();
    const bool isKnown = remembered.isValid();
    const QRect wanted = isKnown ? remembered : window_.geometry();
    const QRect available = screenOf(wanted).availableGeometry().marginsRemoved(usualFrame);
    const QRect held =
        heldWithin(available, {wanted.topLeft(), wanted.size().expandedTo(window_.minimumSize())});
    normal_ = held;
    // The desktop finds a better place for a first window than the program.
    if (isKnown)
        window_.setGeometry(held);
    else
        window_.resize(held.size());
    if (file.value(maximisedKey).toBool())
        window_.setWindowStates(Qt::WindowMaximized);
    const double scale = file.value(textScaleKey).toDouble();
    if (scale > 0 && !appearance_.forcesTextScale())
        appearance_.chooseTextScale(scale);
}

bool WindowMemory::eventFilter(QObject* window, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        followGeometry();
    return QObject::eventFilter(window, event);
}

void WindowMemory::followGeometry() {
    if (window_.isVisible() && window_.windowStates() == Qt::WindowNoState)
        normal_ = window_.geometry();
}

} // namespace wardlock::window
