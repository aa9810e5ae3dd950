#include "window/items/Theme.h"

#include "window/items/RowText.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>

#include <algorithm>
#include <cmath>

namespace wardlock::window {

namespace {

constexpr double largestBarScale = 1.3;
constexpr double largestBarScaleInNarrowWindow = 1.15;
constexpr double largestSignScale = 1.5;
constexpr double largestSignScaleInNarrowWindow = 1.15;
constexpr double narrow = 340;

QObject* make(QQmlEngine* engine, QJSEngine*) {
    const auto appearance = engine->rootContext()->contextProperty(QStringLiteral("appearance"));
    return new Theme(*appearance.value<Appearance*>());
}

int typeNumber() {
    static const int number = qmlRegisterSingletonType<Theme>("Wardlock.Native", 1, 0, "Theme", &make);
    return number;
}

} // namespace

Theme::Theme(const Appearance& appearance) : appearance_(appearance) {
    connect(&appearance, &Appearance::changed, this, &Theme::follow);
    follow();
    // Items that paint themselves have to mirror themselves.
    connect(qApp, &QGuiApplication::layoutDirectionChanged, this, &Theme::changed);
}

void Theme::follow() {
    dark_ = appearance_.isDark();
    strong_ = appearance_.highContrast();
    textScale_ = appearance_.textScale();
    emit changed();
}

void Theme::install() {
    typeNumber();
}

QFont Theme::usualFont() {
    QFont font(family());
    font.setPixelSize(usualBody);
    return font;
}

Theme* Theme::of(const QQuickItem& item) {
    for (const auto* made = &item; made; made = made->parentItem())
        if (auto* engine = qmlEngine(made))
            return engine->singletonInstance<Theme*>(typeNumber());
    return nullptr;
}

bool Theme::isMirrored() const {
    return QGuiApplication::layoutDirection() == Qt::RightToLeft;
}

double Theme::signScale() const {
    return std::clamp(textScale(), 1.0, isNarrow() ? largestSignScaleInNarrowWindow : largestSignScale);
}

void Theme::setWindowWidth(double width) {
    const bool before = isNarrow();
    windowWidth_ = width;
    if (isNarrow() != before)
        emit changed();
}

bool Theme::isNarrow() const {
    return windowWidth_ < narrow;
}

double Theme::barScale() const {
    return std::min(textScale(), isNarrow() ? largestBarScaleInNarrowWindow : largestBarScale);
}

int Theme::barHeight() const {
    return std::max(52, qRound(52 * barScale()));
}

double Theme::sideMargin(double width) const {
    return std::max<double>(margin(), std::round((width - widest) / 2));
}

double Theme::widthOf(const QString& text) const {
    QFont font = usualFont();
    font.setPixelSize(body());
    return QFontMetricsF(font).horizontalAdvance(text);
}

QVariantMap Theme::fitted(const QString& text, double room) const {
    const RowText row(text, *this, room);
    return {{QStringLiteral("text"), row.text()}, {QStringLiteral("size"), row.size()}};
}

} // namespace wardlock::window
