#include "window/WindowHost.h"

#include "platform/services/HostDevice.h"
#include "platform/services/StopSignals.h"
#include "window/accessibility/AccessibleItem.h"
#include "window/items/Announcement.h"
#include "window/items/BlurredBackdrop.h"
#include "window/items/Chevron.h"
#include "window/items/Magnifier.h"
#include "window/items/Modal.h"
#include "window/items/RowIcon.h"
#include "window/items/TableCell.h"
#include "window/items/Theme.h"
#include "window/models/TextParts.h"
#include "window/pictures/Pictures.h"

#include <QGuiApplication>
#include <QQmlContext>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace wardlock::window {

namespace {

/// Pictures that take longer come when they are decoded; the window does not wait for them.
constexpr std::chrono::milliseconds firstPictures{300};

/// Creates the rows that are in sight, which lists do before a frame otherwise.
void fillLists(QQuickItem& item) {
    if (item.inherits("QQuickListView"))
        item.ensurePolished();
    for (auto* child : item.childItems())
        fillLists(*child);
}

} // namespace

WindowHost::WindowHost(platform::AnimationClock& clock, double transitionSeconds)
    : settings_(clock, transitionSeconds),
      keptInput_([this] { return settings_.application().screen().isInTransition(); }) {
    qmlRegisterType<Announcement>("Wardlock.Native", 1, 0, "Announcement");
    qmlRegisterType<BlurredBackdrop>("Wardlock.Native", 1, 0, "BlurredBackdrop");
    qmlRegisterType<Chevron>("Wardlock.Native", 1, 0, "Chevron");
    qmlRegisterType<Layer>("Wardlock.Native", 1, 0, "Layer");
    qmlRegisterType<Magnifier>("Wardlock.Native", 1, 0, "Magnifier");
    qmlRegisterType<Modal>("Wardlock.Native", 1, 0, "Modal");
    qmlRegisterType<RowIcon>("Wardlock.Native", 1, 0, "RowIcon");
    qmlRegisterType<TableCell>("Wardlock.Native", 1, 0, "TableCell");
    qmlRegisterType<Toggle>("Wardlock.Native", 1, 0, "Toggle");
    qmlRegisterType<TextParts>("Wardlock.Native", 1, 0, "TextParts");
    Theme::install();
    // Each text of Qt Quick compares its font with the application's, and loads both for that.
    QGuiApplication::setFont(Theme::usualFont());
    installAccessibility();
    engine_.rootContext()->setContextProperty(QStringLiteral("settings"), &settings_);
    engine_.rootContext()->setContextProperty(QStringLiteral("appearance"), &appearance_);
    engine_.rootContext()->setContextProperty(QStringLiteral("keyboard"), &keyboard_);
    engine_.rootContext()->setContextProperty(QStringLiteral("fullText"), &fullText_);
    engine_.rootContext()->setContextProperty(QStringLiteral("keptInput"), &keptInput_);
    engine_.addImportPath(QStringLiteral("qrc:/"));
    engine_.load(QUrl(QStringLiteral("qrc:/Wardlock/Main.qml")));
    // Where the display activates a window at once, the first change is missed.
    active_ = QGuiApplication::applicationState() == Qt::ApplicationActive;
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &WindowHost::followApplicationState);
    if (!window())
        return;
    window()->installEventFilter(&keyboard_);
    window()->installEventFilter(&heldKeys_);
    window()->installEventFilter(this);
    fullText_.watch(*window());
    for (const auto changed : {&QWindow::widthChanged, &QWindow::heightChanged})
        connect(window(), changed, this, &WindowHost::updateScreen);
    connect(window(), &QWindow::screenChanged, this, &WindowHost::updateScreen);
    updateScreen();
    keepInput();
}

WindowHost::~WindowHost() {
    memory_.reset();
    // The views are destroyed before the models they show.
    delete window();
}

QQuickWindow* WindowHost::window() const {
    return engine_.rootObjects().isEmpty() ? nullptr
                                           : qobject_cast<QQuickWindow*>(engine_.rootObjects().constFirst());
}

void WindowHost::keepInput() {
    keptInput_.watch(*window());
    // The items follow the models first.
    connect(
        &settings_, &SettingsWindow::pagesRested, &keptInput_, [this] { keptInput_.deliver(); },
        Qt::QueuedConnection);
}

void WindowHost::rememberPlace() {
    memory_ = std::make_unique<WindowMemory>(*window(), appearance_);
}

void WindowHost::show() {
    // The items get the window's size when it appears, and the lists their rows then. That is too late for
    // the pictures in the rows.
    window()->contentItem()->setSize(window()->size());
    fillLists(*window()->contentItem());
    Pictures::shared().waitForFetched(firstPictures);
    // Between its appearance and its first frame, a window of X11 has no content, which is shown as black.
    const bool hides = QGuiApplication::platformName() == QLatin1String("xcb");
    if (hides) {
        window()->setOpacity(0);
        connect(
            window(), &QQuickWindow::frameSwapped, this, [this] { window()->setOpacity(1); },
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    }
    // Showing a window gives it its usual state.
    if ((window()->windowStates() & Qt::WindowMaximized) != 0)
        window()->showMaximized();
    else
        window()->show();
}

void WindowHost::raise(const std::string& activationToken) {
    // Qt passes it to the compositor with the request.
    if (!activationToken.empty())
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(activationToken));
    if ((window()->windowStates() & Qt::WindowMinimized) != 0)
        window()->setWindowStates(window()->windowStates() & ~Qt::WindowMinimized);
    // Elsewhere the activation raises it, and Qt warns that it cannot.
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        window()->raise();
    window()->requestActivate();
}

void WindowHost::endOnSignals() {
    const int stopped = platform::catchStopSignals();
    if (stopped < 0)
        return;
    stop_ = std::make_unique<QSocketNotifier>(stopped, QSocketNotifier::Read);
    connect(stop_.get(), &QSocketNotifier::activated, this, &WindowHost::end);
}

bool WindowHost::eventFilter(QObject* window, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
        settings_.application().noteActivity();
        break;
    default:
        break;
    }
    return QObject::eventFilter(window, event);
}

void WindowHost::end() {
    stop_->setEnabled(false);
    const bool stored = settings_.storeTypedText();
    if (!stored)
        std::fprintf(stderr, "wardlock-settings: %s\n", qPrintable(settings_.notice()));
    QCoreApplication::exit(stored ? EXIT_SUCCESS : EXIT_FAILURE);
}

void WindowHost::updateScreen() const {
    // Pictures are requested at the resolution of a device at least, so that they stay sharp when the text
    // grows.
    constexpr double devicesScale = 2;
    platform::setScreenSize({double(window()->width()), double(window()->height())});
    platform::setScreenScale(std::max(devicesScale, window()->devicePixelRatio()));
}

void WindowHost::followApplicationState(Qt::ApplicationState state) {
    const bool wasActive = std::exchange(active_, state == Qt::ApplicationActive);
    if (wasActive && !active_)
        settings_.resignActive();
}

} // namespace wardlock::window
