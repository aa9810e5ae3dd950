// Long names: a word is never broken, and what does not fit ends in an ellipsis.

#include "tests/unit/window/WindowFixture.h"

#include <QColor>
#include <gtest/gtest.h>

namespace wardlock::test {

namespace {

constexpr const char* longWord = "Donaudampfschifffahrtsgesellschaftskapitänswitwe";
constexpr const char* longFolder = "/home/parent/.local/share/wardlock/device/var/mobile/Library/Preferences";

} // namespace

class WindowLongNames : public WindowFixture {
protected:
    void openNarrow() { open(0, {280, 700}); }
    void deleteAccount(const std::string& name) {
        setAccounts({name});
        openNarrow();
        scene().tap("row:Wardlock");
        scene().tap("row:" + QString::fromStdString(name));
        scene().reveal("row:Delete Account");
        scene().tap("row:Delete Account");
        scene().tap("alert:Delete");
        scene().item("offer");
    }
    /// The words of a notice, without the mark of their direction.
    std::string words(const char* name) { return scene().text(name).substr(std::string("\u200e").size()); }
    bool isTransparent(const char* field) {
        return scene().item(field)->property("color").value<QColor>().alpha() == 0;
    }
};

TEST_F(WindowLongNames, AreElidedInANoticeRatherThanBroken) {
    deleteAccount(longWord);
    const std::string shown = words("offer:words");
    EXPECT_TRUE(shown.starts_with("Donaudampf")) << shown;
    EXPECT_TRUE(shown.ends_with("\u2026 was deleted")) << shown;
    const auto* text = scene().item("offer:words");
    EXPECT_LE(text->property("contentWidth").toDouble(), text->width());
    EXPECT_EQ(scene().accessible("offer")->text(QAccessible::Name),
              QString::fromStdString(longWord + std::string(" was deleted")));
}

TEST_F(WindowLongNames, AreWholeInANoticeWhereTheirWordsFit) {
    deleteAccount("Anna Maria Katharina Wilhelmine");
    EXPECT_EQ(words("offer:words"), "Anna Maria Katharina Wilhelmine was deleted");
}

TEST_F(WindowLongNames, AreWholeInANoticeWhenTheyArePaths) {
    openNarrow();
    host().settings().showProblems({std::string("cannot write to folder ") + longFolder});
    EXPECT_EQ(words("notice:words"), std::string("Cannot write to folder ") + longFolder + ".");
    const auto* text = scene().item("notice:words");
    EXPECT_LE(text->property("contentWidth").toDouble(), text->width());
}

TEST_F(WindowLongNames, AreElidedInAFieldUntilItIsEdited) {
    writeFile("/tmp/dpkgl.log", "packages");
    openNarrow();
    scene().tap("row:Wardlock");
    scene().reveal("row:support@tavix.example");
    scene().tap("row:support@tavix.example");
    scene().item("mail:Subject:");
    scene().settle();
    scene().tap("mail:Subject:");
    scene().press(Qt::Key_A, Qt::ControlModifier);
    scene().type("One Two Three Four Five Six Seven Eight Nine Ten");
    EXPECT_FALSE(isTransparent("mail:Subject:"));
    scene().item("mail:body")->forceActiveFocus();
    EXPECT_TRUE(isTransparent("mail:Subject:"));
    EXPECT_TRUE(scene().showsText("One Two Three Four Five Six Seven Eight Nine Ten"));
    scene().item("mail:Subject:")->forceActiveFocus();
    EXPECT_FALSE(isTransparent("mail:Subject:"));
}

} // namespace wardlock::test
