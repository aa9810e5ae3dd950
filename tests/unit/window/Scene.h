#pragma once

#include <QAccessible>
#include <QPointF>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace wardlock::test {

/// Lets the loop run until the condition is true; returns whether that was within the time of a test.
bool until(const std::function<bool()>& condition);

/// What is on the screen of a window, by the objectName of its items, and a user's input. Items that
/// cannot be seen do not exist here.
class Scene {
public:
    explicit Scene(QQuickWindow& window) : window_(window) {}

    /// Null when nothing of the name can be seen.
    QQuickItem* find(const QString& name) const;
    /// Waits for it; a failed expectation when it does not come.
    QQuickItem* item(const QString& name) const;
    bool shows(const QString& name) const { return find(name) != nullptr; }
    /// Waits until nothing of the name can be seen.
    void expectGone(const QString& name) const;
    /// A property of the item, as text.
    std::string text(const QString& name, const char* property = "text") const;
    /// The names that begin with the prefix, without it, from top to bottom.
    std::vector<std::string> namesWith(const QString& prefix) const;
    /// Whether a text is to be read anywhere.
    bool showsText(const QString& text) const;
    QPointF middleOf(const QString& name) const;

    void tap(const QString& name);
    void tapAt(QPointF point);
    void touch(const QString& name);
    void drag(QPointF from, QPointF to);
    void touchDrag(QPointF from, QPointF to);
    void wheel(const QString& name, int degrees);
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    /// Scrolls the page's list until the whole item can be seen.
    QQuickItem* reveal(const QString& name);
    /// Runs the loop until nothing moves and nothing is waiting.
    void settle() const;
    /// Waits until the window has been drawn once more: touches that move are delivered frame by frame.
    void frame() const;

    /// The description of an item for assistive technology.
    QAccessibleInterface* accessible(const QString& name) const;
    /// The tree below the window: a line for each element, "role: name (states)", indented by its depth.
    std::string accessibilityTree() const;

private:
    /// The middle of the item, once it lies in the window.
    QPoint point(const QString& name) const;

    QQuickWindow& window_;
};

} // namespace wardlock::test
