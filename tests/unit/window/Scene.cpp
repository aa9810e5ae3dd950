#include "tests/unit/window/Scene.h"

#include "tests/support/TestTimeout.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QMetaEnum>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>

namespace wardlock::test {

namespace {

bool canBeSeen(const QQuickItem& item) {
    return item.isVisible() && item.opacity() > 0.01;
}

QQuickItem* findBelow(QQuickItem* top, const std::function<bool(const QQuickItem&)>& wanted) {
    if (!canBeSeen(*top))
        return nullptr;
    if (wanted(*top))
        return top;
    const auto children = top->childItems();
    // What lies on top is looked at first.
    for (auto child = children.rbegin(); child != children.rend(); ++child)
        if (auto* found = findBelow(*child, wanted))
            return found;
    return nullptr;
}

void collect(const QQuickItem* top, std::vector<const QQuickItem*>& all) {
    if (!canBeSeen(*top))
        return;
    all.push_back(top);
    for (const auto* child : top->childItems())
        collect(child, all);
}

QPointingDevice* finger() {
    static QPointingDevice* const finger = QTest::createTouchDevice();
    return finger;
}

std::string states(const QAccessible::State& state) {
    std::string text;
    if (state.focused)
        text += " focused";
    if (state.disabled)
        text += " disabled";
    if (state.checkable)
        text += state.checked ? " on" : " off";
    if (state.passwordEdit)
        text += " secret";
    return text;
}

void describe(QAccessibleInterface* element, int depth, std::string& text) {
    // What was said last can be found for a while only.
    if (!element || element->state().invisible ||
        (element->object() && element->object()->objectName() == QLatin1String("spoken")))
        return;
    const auto role = element->role();
    const std::string name = element->text(QAccessible::Name).toStdString();
    const auto roles = QMetaEnum::fromType<QAccessible::Role>();
    if (depth > 0)
        text += std::string(static_cast<std::size_t>(depth - 1) * 2, ' ') + roles.valueToKey(role) + ": " +
                name + states(element->state());
    if (const QString more = element->text(QAccessible::Description); depth > 0 && !more.isEmpty())
        text += " (" + more.toStdString() + ')';
    if (depth > 0)
        text += '\n';
    for (int i = 0; i < element->childCount(); ++i)
        describe(element->child(i), depth + 1, text);
}

} // namespace

bool until(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(testTimeoutMilliseconds);
    QTimer heartbeat;
    heartbeat.start(2);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

QQuickItem* Scene::find(const QString& name) const {
    return findBelow(window_.contentItem(),
                     [&](const QQuickItem& item) { return item.objectName() == name; });
}

QQuickItem* Scene::item(const QString& name) const {
    EXPECT_TRUE(until([&] { return shows(name); }))
        << "nothing named \"" << name.toStdString() << "\" can be seen";
    return find(name);
}

void Scene::expectGone(const QString& name) const {
    EXPECT_TRUE(until([&] { return !shows(name); })) << '"' << name.toStdString() << "\" can still be seen";
}

std::string Scene::text(const QString& name, const char* property) const {
    const auto* found = item(name);
    return found ? found->property(property).toString().toStdString() : "";
}

std::vector<std::string> Scene::namesWith(const QString& prefix) const {
    std::vector<const QQuickItem*> all;
    collect(window_.contentItem(), all);
    std::erase_if(all, [&](const QQuickItem* item) { return !item->objectName().startsWith(prefix); });
    std::ranges::stable_sort(all, {}, [](const QQuickItem* item) { return item->mapToScene({}).y(); });
    std::vector<std::string> names;
    for (const auto* item : all)
        names.push_back(item->objectName().mid(prefix.size()).toStdString());
    return names;
}

bool Scene::showsText(const QString& text) const {
    return findBelow(window_.contentItem(), [&](const QQuickItem& item) {
               return item.property("text").toString() == text;
           }) != nullptr;
}

QPointF Scene::middleOf(const QString& name) const {
    const auto* found = item(name);
    return found ? found->mapToScene({found->width() / 2, found->height() / 2}) : QPointF();
}

QPoint Scene::point(const QString& name) const {
    // A sheet rises from below the window.
    const QRect inside({}, window_.size());
    EXPECT_TRUE(until([&] { return inside.contains(middleOf(name).toPoint()); }))
        << '"' << name.toStdString() << "\" is outside the window";
    return middleOf(name).toPoint();
}

void Scene::tap(const QString& name) {
    tapAt(point(name));
}

void Scene::tapAt(QPointF point) {
    QTest::mouseClick(&window_, Qt::LeftButton, {}, point.toPoint());
}

void Scene::touch(const QString& name) {
    const QPoint where = point(name);
    QTest::touchEvent(&window_, finger()).press(0, where);
    QTest::touchEvent(&window_, finger()).release(0, where);
}

void Scene::drag(QPointF from, QPointF to) {
    constexpr int steps = 8;
    QTest::mousePress(&window_, Qt::LeftButton, {}, from.toPoint());
    for (int step = 1; step <= steps; ++step)
        QTest::mouseMove(&window_, (from + (to - from) * step / steps).toPoint());
    QTest::mouseRelease(&window_, Qt::LeftButton, {}, to.toPoint());
}

void Scene::touchDrag(QPointF from, QPointF to) {
    constexpr int steps = 8;
    QTest::touchEvent(&window_, finger()).press(0, from.toPoint());
    for (int step = 1; step <= steps; ++step) {
        QTest::touchEvent(&window_, finger()).move(0, (from + (to - from) * step / steps).toPoint());
        frame();
    }
    QTest::touchEvent(&window_, finger()).release(0, to.toPoint());
}

void Scene::wheel(const QString& name, int degrees) {
    const QPointF where = middleOf(name);
    QWheelEvent event(where, window_.mapToGlobal(where), {}, {0, degrees * 8}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window_, &event);
}

void Scene::press(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&window_, static_cast<Qt::Key>(key), modifiers);
}

void Scene::type(const QString& text) {
    for (const QChar letter : text)
        QTest::keyClick(&window_, letter.toLatin1());
}

QQuickItem* Scene::reveal(const QString& name) {
    auto* list = item(QStringLiteral("list"));
    if (!list)
        return nullptr;
    const auto inside = [&] {
        const auto* row = find(name);
        if (!row)
            return false;
        const QRectF place = row->mapRectToItem(list, row->boundingRect());
        return place.top() >= 0 && place.bottom() <= list->height();
    };
    const double first = list->property("originY").toDouble() - list->property("topMargin").toDouble();
    for (double y = first; !inside(); y += list->height() / 3) {
        const double last = list->property("originY").toDouble() + list->property("contentHeight").toDouble();
        if (y > last)
            break;
        list->setProperty("contentY", y);
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(inside()) << '"' << name.toStdString() << "\" is nowhere in the list";
    return find(name);
}

void Scene::frame() const {
    bool drawn = false;
    const auto connection = QObject::connect(&window_, &QQuickWindow::frameSwapped, [&] { drawn = true; });
    window_.update();
    EXPECT_TRUE(until([&] { return drawn; }));
    QObject::disconnect(connection);
}

void Scene::settle() const {
    // Two rounds: what the first one finishes may ask for another.
    for (int round = 0; round < 2; ++round) {
        bool reached = false;
        QTimer::singleShot(0, [&] { reached = true; });
        until([&] { return reached; });
    }
}

QAccessibleInterface* Scene::accessible(const QString& name) const {
    return QAccessible::queryAccessibleInterface(item(name));
}

std::string Scene::accessibilityTree() const {
    std::string text;
    describe(QAccessible::queryAccessibleInterface(&window_), 0, text);
    return text;
}

} // namespace wardlock::test
