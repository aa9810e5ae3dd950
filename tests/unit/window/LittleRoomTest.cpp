// Large letters in a narrow window, and windows that are low.

#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/unit/window/WindowFixture.h"
#include "window/Translation.h"

#include <QFont>
#include <gtest/gtest.h>

namespace wardlock::test {

class WindowWithLittleRoom : public WindowFixture {
protected:
    ~WindowWithLittleRoom() override { quit(); }

    void openAt(QSize size, double textScale) {
        open(0, size);
        host().appearance().forceTextScale(textScale);
    }
    void openWardlockAt(QSize size, double textScale) {
        openAt(size, textScale);
        scene().tap("row:Wardlock");
        scene().item("page:Wardlock");
    }
    void openRow(const QString& label) {
        scene().reveal("row:" + label);
        scene().tap("row:" + label);
    }
    void openSheet(QSize size, double textScale) {
        writeFile("/tmp/dpkgl.log", "packages");
        openWardlockAt(size, textScale);
        openRow("support@tavix.example");
        ASSERT_TRUE(until([&] { return scene().item("composer")->y() == 24; }));
    }
    QRectF placeOf(const QString& name) {
        const auto* item = scene().item(name);
        return item->mapRectToScene(item->boundingRect());
    }
    /// The text of a row, which is a part of it.
    const QQuickItem* words(const QQuickItem* row, const QString& beginning) {
        for (const auto* part : row->childItems())
            if (part->property("text").toString().startsWith(beginning))
                return part;
        ADD_FAILURE() << "no text begins with " << beginning.toStdString();
        return row;
    }
    const QQuickItem* words(const QString& item, const QString& beginning) {
        return words(scene().item(item), beginning);
    }
    static bool isWhole(const QQuickItem* words) {
        return !words->property("truncated").toBool() &&
               !words->property("text").toString().contains(u'\u2026');
    }
    /// Over settings that something has damaged, which offers their last good version.
    void openDamaged(QSize size, double textScale) {
        const ProcessResult result = runProcess(programFolder() + "/wardlock", {"account", "add", "Ann"});
        ASSERT_EQ(result.exitCode, 0) << result.errors;
        removeFile(documentPath);
        writeFile(documentPath, "<plist><dict><key>kEnabled</key>");
        openAt(size, textScale);
        scene().item("offer");
    }
    void deleteAccount(const QString& name) {
        openRow(name);
        scene().item("page:" + name);
        openRow("Delete Account");
        scene().item("alert");
        scene().tap("alert:Delete");
        scene().item("offer");
    }

    static constexpr QSize narrow{280, 600};
    static constexpr QSize low{844, 390};
};

TEST_F(WindowWithLittleRoom, ShowsTheTitleRatherThanTheWordBesideTheArrowBack) {
    openWardlockAt(narrow, 2);
    EXPECT_TRUE(isWhole(scene().item("title")));
    EXPECT_LT(placeOf("back").width(), 50);
    EXPECT_LE(placeOf("back").right(), placeOf("title").left());
    EXPECT_LE(placeOf("title").right(), placeOf("search:open").left());
}

TEST_F(WindowWithLittleRoom, KeepsTheWordBesideTheArrowBackWhereTheTitleIsLongInAnyCase) {
    setAccounts({"Maximiliane-Alexandra Charlotte"});
    openWardlockAt({390, 844}, 1);
    openRow("Maximiliane-Alexandra Charlotte");
    scene().item("page:Maximiliane-Alexandra Charlotte");
    EXPECT_GT(placeOf("back").width(), 60);
}

TEST_F(WindowWithLittleRoom, MakesALongWordOfARowSmallerRatherThanShorter) {
    openWardlockAt(narrow, 2);
    EXPECT_EQ(words("row:Enabled", "Enabled")->property("font").value<QFont>().pixelSize(), 34);
    openRow("Default");
    scene().reveal("row:Disable Lockscreen Passcode");
    const auto* label = words("row:Disable Lockscreen Passcode", "Disable");
    EXPECT_TRUE(isWhole(label));
    EXPECT_EQ(label->property("lineCount").toInt(), 3);
    EXPECT_LT(label->property("font").value<QFont>().pixelSize(), 34);
    EXPECT_LE(label->property("contentWidth").toDouble(), label->width());
}

TEST_F(WindowWithLittleRoom, GivesLettersOfUsualSizeASecondLineToo) {
    installApplication("org.example.reader", "Reader of Newspapers");
    openWardlockAt(narrow, 1);
    openRow("Default");
    scene().reveal("row:Disable Lockscreen Passcode");
    const auto* label = words("row:Disable Lockscreen Passcode", "Disable");
    EXPECT_TRUE(isWhole(label));
    EXPECT_GT(label->property("lineCount").toInt(), 1);
    openRow("Apps");
    EXPECT_GT(scene().item("cell:org.example.reader")->height(), 44);
    window().resize(390, 600);
    EXPECT_TRUE(until([&] { return scene().item("cell:org.example.reader")->height() == 35; }));
}

TEST_F(WindowWithLittleRoom, ElidesAWordThatWouldHaveToBeSmallerThanUsual) {
    const QString name(60, 'w');
    setAccounts({name.toStdString()});
    openWardlockAt(narrow, 2);
    scene().reveal("row:" + name);
    const auto* label = words("row:" + name, "w");
    EXPECT_EQ(label->property("font").value<QFont>().pixelSize(), 34);
    EXPECT_FALSE(isWhole(label));
    EXPECT_LE(label->property("contentWidth").toDouble(), label->width());
}

TEST_F(WindowWithLittleRoom, BreaksAnAddressBehindItsSignOnly) {
    openWardlockAt(narrow, 2);
    scene().reveal("row:support@tavix.example");
    const auto* label = words("row:support@tavix.example", "support@");
    EXPECT_TRUE(isWhole(label));
    EXPECT_EQ(label->property("lineCount").toInt(), 2);
}

TEST_F(WindowWithLittleRoom, BreaksAnIdentifierBehindItsDots) {
    setAccounts({"Anna"});
    setInAccount(0, kAppsRestricted, platform::Array{"com.example.messages", "org.short"});
    openWardlockAt(narrow, 1);
    openRow("Anna");
    openRow("Apps");
    EXPECT_EQ(scene().item("cell:org.short")->height(), 35);
    EXPECT_GT(scene().item("cell:com.example.messages")->height(), 44);
}

TEST_F(WindowWithLittleRoom, ShowsTheWayToAFoundSetting) {
    setAccounts({"Anna", "Tom"});
    openAt(narrow, 1.5);
    scene().press(Qt::Key_F, Qt::ControlModifier);
    scene().item("search");
    scene().type("siri tom");
    const auto* row = scene().item("row:Siri");
    ASSERT_TRUE(until([&] { return scene().showsText("Wardlock \u203a Tom"); }));
    for (const auto* part : row->childItems())
        for (const auto* inner : part->childItems())
            if (inner->property("text").toString() == QStringLiteral("Wardlock \u203a Tom")) {
                EXPECT_GT(inner->width(), row->width() / 2);
            }
    EXPECT_TRUE(isWhole(words("row:Siri", "Siri")));
}

TEST_F(WindowWithLittleRoom, LeavesTheSearchRoomToType) {
    openAt(narrow, 2);
    scene().press(Qt::Key_F, Qt::ControlModifier);
    scene().item("search");
    scene().type("s");
    EXPECT_GE(scene().item("search")->width(), 80);
    EXPECT_LE(placeOf("search:clear").right(), placeOf("search:cancel").left());
    EXPECT_LE(placeOf("search:cancel").right(), 280);
}

TEST_F(WindowWithLittleRoom, PutsTheButtonsOfAnAlertBelowEachOtherWhereTheyDoNotFit) {
    openSheet(narrow, 1.5);
    scene().item("mail:body")->forceActiveFocus();
    scene().type("!");
    scene().tap("mail:cancel");
    const auto* keep = scene().item("alert:Keep Writing");
    EXPECT_TRUE(isWhole(words(keep, "Keep")));
    EXPECT_LE(placeOf("alert:Keep Writing").bottom(), placeOf("alert:Discard").top());
    EXPECT_LE(placeOf("alert:Discard").bottom(), placeOf("alert").bottom() + 0.5);
    host().appearance().forceTextScale(1);
    window().resize(390, 844);
    EXPECT_TRUE(until([&] { return placeOf("alert:Keep Writing").top() == placeOf("alert:Discard").top(); }));
}

TEST_F(WindowWithLittleRoom, ShowsTheNamesOfAttachmentsWhole) {
    openSheet(narrow, 2);
    scene().item("mail:scroll")->setProperty("contentY", 2000);
    const auto* row = scene().item("mail:attachment:dpkgl.log");
    const auto* label = words(row->childItems().constFirst(), "dpkgl.log");
    EXPECT_EQ(label->property("text").toString(), "dpkgl.log\n8 bytes");
    EXPECT_FALSE(label->property("truncated").toBool());
    EXPECT_LE(label->height(), row->height());
}

TEST_F(WindowWithLittleRoom, ShowsNoTitleOfAMailInTinyLetters) {
    environment.set("LC_ALL", "de_DE.UTF-8");
    environment.set("LANGUAGE", "de");
    const window::Translation translation;
    openSheet({390, 844}, 1);
    EXPECT_TRUE(scene().shows("mail:title"));
    window().resize(280, 600);
    scene().expectGone("mail:title");
    EXPECT_LE(placeOf("mail:cancel").right(), placeOf("mail:send").left());
    quit();
}

TEST_F(WindowWithLittleRoom, PutsTheButtonsOfAnOfferBelowEachOtherWhereTheyDoNotFit) {
    openDamaged({280, 360}, 2.5);
    ASSERT_TRUE(until([&] { return placeOf("offer").right() <= 280; }));
    for (const char* button : {"offer:no", "offer:ok"})
        EXPECT_TRUE(placeOf("offer").contains(placeOf(button))) << button;
    EXPECT_LE(placeOf("offer:no").bottom(), placeOf("offer:ok").top());
    EXPECT_LE(placeOf("offer:words").bottom(), placeOf("offer:no").top() + 12);
    host().appearance().forceTextScale(1);
    EXPECT_TRUE(until([&] { return placeOf("offer:no").top() == placeOf("offer:ok").top(); }));
}

TEST_F(WindowWithLittleRoom, KeepsTheRingOfAnOffersButtonOffItsWords) {
    openDamaged({390, 844}, 1);
    scene().item("offer:no")->forceActiveFocus(Qt::TabFocusReason);
    scene().press(Qt::Key_Tab);
    ASSERT_TRUE(scene().item("offer:ok")->hasActiveFocus());
    const QRectF place = placeOf("ring");
    EXPECT_FALSE(place.intersects(placeOf("offer:words")));
    EXPECT_TRUE(placeOf("offer").contains(place));
}

TEST_F(WindowWithLittleRoom, ScrollsTheLastLineOutFromBeneathAnOffer) {
    setAccounts({"Ann", "Tom"});
    openWardlockAt({390, 500}, 1);
    deleteAccount("Ann");
    scene().press(Qt::Key_End);
    ASSERT_TRUE(scene().item("row:More From Tavix")->hasActiveFocus());
    EXPECT_LE(placeOf("row:More From Tavix").bottom(), placeOf("offer").top());
    const auto* list = scene().item("list");
    EXPECT_TRUE(list->property("atYEnd").toBool());
    scene().tap("offer:ok");
    scene().expectGone("offer");
    EXPECT_TRUE(until([&] { return list->property("bottomMargin").toDouble() == 28; }));
}

TEST_F(WindowWithLittleRoom, StepsToARowThatAnOfferCovers) {
    setAccounts({"Ann", "Tom"});
    openWardlockAt({390, 500}, 1);
    deleteAccount("Ann");
    QString focused;
    for (int i = 0; i < 40 && focused != QLatin1String("row:More From Tavix"); ++i) {
        scene().press(Qt::Key_Down);
        const auto* row = window().activeFocusItem();
        focused = row->objectName();
        EXPECT_LE(row->mapRectToScene(row->boundingRect()).bottom(), placeOf("offer").top())
            << focused.toStdString();
    }
    EXPECT_EQ(focused, QLatin1String("row:More From Tavix"));
}

TEST_F(WindowWithLittleRoom, HasAKeypadOfUsualSizeBesideItsQuestionWhereItIsLow) {
    openWardlockAt(low, 1);
    openRow("Passcode");
    clock.step(0.4);
    scene().item("keypad:status");
    EXPECT_GE(placeOf("key:1").width(), 60);
    EXPECT_LT(placeOf("keypad:status").right(), placeOf("key:1").left());
    for (const char* name : {"keypad:status", "keypad:dots", "key:1", "key:3", "key:0", "keypad:cancel"})
        EXPECT_TRUE(QRectF({}, low).contains(placeOf(name))) << name;
    window().resize(390, 844);
    EXPECT_TRUE(until([&] { return placeOf("keypad:status").bottom() < placeOf("key:1").top(); }));
}

} // namespace wardlock::test
