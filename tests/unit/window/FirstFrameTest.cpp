#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

#include <set>

namespace wardlock::test {

namespace {

/// Adds the names of the item and of all items in it, seen or not.
void collectNames(const QQuickItem& item, std::set<std::string>& names) {
    names.insert(item.objectName().toStdString());
    for (const auto* child : item.childItems())
        collectNames(*child, names);
}

} // namespace

class WindowFirstFrame : public WindowFixture {};

TEST_F(WindowFirstFrame, ContainsNoPartThatIsNotSeenYet) {
    open();
    std::set<std::string> names;
    collectNames(*window().contentItem(), names);
    EXPECT_TRUE(names.contains("row:Wardlock"));
    for (const char* unseen : {"menu", "offer:ok", "notice:ok", "guide", "search", "back", "ring"})
        EXPECT_FALSE(names.contains(unseen)) << unseen;
}

} // namespace wardlock::test
