#include "window/items/Look.h"

#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>

#include <algorithm>
#include <cmath>

namespace wardlock::app {

namespace {

constexpr double largestBarScale = 1.3;

QObject* make(QQmlEngine* engine, QJSEngine*) {
    const auto appearance = engine->rootContext()->contextProperty(QStringLiteral("appearance"));
    return new Look(*appearance.value<Appearance*>());
}

int typeNumber() {
    static const int number = qmlRegisterSingletonType<Look>("Wardlock.Native", 1, 0, "Look", &make);
    return number;
}

} // namespace

Look::Look(const Appearance& appearance) : appearance_(appearance) {
    connect(&appearance, &Appearance::changed, this, &Look::follow);
    follow();
    // What is painted by hand is mirrored by hand.
    connect(qApp, &QGuiApplication::layoutDirectionChanged, this, &Look::changed);
}

void Look::follow() {
    dark_ = appearance_.isDark();
    strong_ = appearance_.highContrast();
    textScale_ = appearance_.textScale();
    emit changed();
}

void Look::install() {
    typeNumber();
}

Look* Look::of(const QQuickItem& item) {
    for (const auto* made = &item; made; made = made->parentItem())
        if (auto* engine = qmlEngine(made))
            return engine->singletonInstance<Look*>(typeNumber());
    return nullptr;
}

double Look::barScale() const {
    return std::min(textScale(), largestBarScale);
}

int Look::barHeight() const {
    return std::max(52, qRound(52 * barScale()));
}

double Look::sideMargin(double width) const {
    return std::max<double>(margin, std::round((width - widest) / 2));
}

} // namespace wardlock::app
