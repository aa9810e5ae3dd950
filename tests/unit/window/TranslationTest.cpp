// The texts of Settings itself in the user's language.

#include "window/Translation.h"

#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/unit/window/WindowFixture.h"

#include <QAccessible>
#include <gtest/gtest.h>

#include <optional>

namespace wardlock::test {

using Names = std::vector<std::string>;

class WindowTranslation : public WindowFixture {
protected:
    WindowTranslation() {
        for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"})
            environment.set(name, "");
        platform::FileSystem::setCurrent(&files_);
    }
    ~WindowTranslation() override {
        files_.fillDiskFrom(std::size_t(-1));
        quit();
        translation_.reset();
        platform::FileSystem::setCurrent(nullptr);
    }
    void choose(const std::string& locale, const std::string& languages = "") {
        environment.set("LC_ALL", locale);
        environment.set("LANGUAGE", languages);
    }
    /// As the program does at its start.
    void translate() { translation_.emplace(); }
    std::string spoken(const char* name) {
        return scene().accessible(name)->text(QAccessible::Name).toStdString();
    }
    /// The name of the search, in the language of the environment.
    std::string search() {
        translate();
        openWardlock();
        scene().press(Qt::Key_F, Qt::ControlModifier);
        return spoken("search");
    }
    void fillDisk() { files_.fillDiskFrom(files_.calls() + 1); }

private:
    FaultyFileSystem files_{platform::FileSystem::current()};
    std::optional<window::Translation> translation_;
};

TEST_F(WindowTranslation, ShowsSettingsInGerman) {
    choose("de_DE.UTF-8");
    EXPECT_EQ(search(), "Suchen");
    EXPECT_EQ(scene().text("search:cancel"), "Abbrechen");
    EXPECT_EQ(spoken("back"), "Zurück zu Einstellungen");
    EXPECT_EQ(window().title(), "Wardlock – Einstellungen");
    scene().type("zz");
    EXPECT_TRUE(until([&] { return scene().showsText("Nichts gefunden"); }));
}

TEST_F(WindowTranslation, LeavesTheBundlesPagesAsTheyAre) {
    choose("de_DE.UTF-8");
    translate();
    openWardlock();
    scene().item("row:Passcode");
    EXPECT_TRUE(scene().showsText("ACCOUNTS"));
    EXPECT_TRUE(
        scene().showsText("Use the '+' button at the top right of the screen to create a new account."));
    scene().tap("add");
    scene().item("alert:Cancel");
    EXPECT_TRUE(scene().shows("alert:Create"));
}

TEST_F(WindowTranslation, ReportsAnUnsavedChangeInGerman) {
    choose("de_DE.UTF-8");
    translate();
    openWardlock();
    fillDisk();
    scene().tap("switch:Enabled");
    scene().item("notice");
    // The system's own language is English here: its reason stays as it is.
    EXPECT_EQ(scene().text("notice"),
              "Die Änderung konnte nicht gespeichert werden: No space left on device.");
}

TEST_F(WindowTranslation, OffersToUndoADeletionInGerman) {
    choose("de_DE.UTF-8");
    translate();
    setAccounts({"Ann", "Tom"});
    openWardlock();
    scene().tap("row:Ann");
    scene().reveal("row:Delete Account");
    scene().tap("row:Delete Account");
    scene().tap("alert:Delete");
    scene().item("offer");
    EXPECT_EQ(scene().text("offer"), "Ann wurde gelöscht");
    EXPECT_EQ(scene().text("offer:ok"), "Rückgängig");
}

TEST_F(WindowTranslation, IsGermanInAustria) {
    choose("de_AT.UTF-8@euro");
    EXPECT_EQ(search(), "Suchen");
}

TEST_F(WindowTranslation, IsThatOfTheFirstLanguageThatHasOne) {
    choose("br_FR.UTF-8", "br:de:en");
    EXPECT_EQ(search(), "Suchen");
}

TEST_F(WindowTranslation, IsNotNeededWhereEnglishComesFirst) {
    choose("en_GB.UTF-8", "en_GB:en:de");
    EXPECT_EQ(search(), "Search");
}

TEST_F(WindowTranslation, IsEnglishInALanguageWithoutOne) {
    choose("br_FR.UTF-8");
    EXPECT_EQ(search(), "Search");
}

TEST_F(WindowTranslation, IgnoresTheListOfLanguagesInTheLocaleC) {
    choose("C.UTF-8", "de");
    EXPECT_EQ(search(), "Search");
}

TEST_F(WindowTranslation, TakesTheLanguageOfMessagesBeforeThatOfTheRest) {
    environment.set("LANG", "en_US.UTF-8");
    environment.set("LC_MESSAGES", "pt_BR.UTF-8");
    EXPECT_EQ(window::userLanguages(), (Names{"pt_BR", "pt"}));
    environment.set("LC_ALL", "fr");
    EXPECT_EQ(window::userLanguages(), Names{"fr"});
}

TEST_F(WindowTranslation, EndsWithTheTranslationObject) {
    choose("de");
    { const window::Translation translation; }
    openWardlock();
    EXPECT_EQ(window().title(), "Wardlock – Settings");
}

} // namespace wardlock::test
