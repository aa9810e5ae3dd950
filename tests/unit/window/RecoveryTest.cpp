#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wardlock::test {

using Names = std::vector<std::string>;

/// The window over settings that something has damaged.
class WindowRecovery : public WindowFixture {
protected:
    /// The damage replaces the file: one that writes into it would change the kept version too.
    void damage() {
        removeFile(documentPath);
        writeFile(documentPath, "<plist><dict><key>kEnabled</key>");
    }
    void openDamaged() {
        const ProcessResult result = runProcess(programFolder() + "/wardlock", {"account", "add", "Ann"});
        ASSERT_EQ(result.exitCode, 0) << result.errors;
        good_ = readFile(documentPath);
        damage();
        open();
    }
    const std::string& good() const { return good_; }
    std::string focused() {
        const auto* item = window().activeFocusItem();
        return item ? item->objectName().toStdString() : "";
    }

private:
    std::string good_;
};

TEST_F(WindowRecovery, OffersTheLastGoodVersionAndRestoresItByATap) {
    openDamaged();
    scene().item("offer");
    EXPECT_EQ(scene().text("offer"), "The settings are damaged. Their last good version can be restored");
    EXPECT_EQ(scene().text("offer:ok"), "Restore");
    scene().tap("offer:ok");
    scene().expectGone("offer");
    EXPECT_EQ(readFile(documentPath), good());
    EXPECT_TRUE(exists(std::string(documentPath) + ".damaged"));
    scene().tap("row:Wardlock");
    scene().item("row:Ann");
}

TEST_F(WindowRecovery, LeavesTheSettingsAloneWhenTheOfferIsRefused) {
    openDamaged();
    const std::string damaged = readFile(documentPath);
    scene().tap("offer:no");
    scene().expectGone("offer");
    scene().tap("row:Wardlock");
    scene().item("row:Passcode");
    EXPECT_FALSE(scene().shows("offer"));
    EXPECT_EQ(readFile(documentPath), damaged);
}

TEST_F(WindowRecovery, ReachesBothButtonsByTab) {
    openDamaged();
    Names names;
    for (int step = 0; step < 5; ++step) {
        scene().press(Qt::Key_Tab);
        names.push_back(focused());
    }
    EXPECT_NE(std::ranges::find(names, "offer:no"), names.end());
    EXPECT_NE(std::ranges::find(names, "offer:ok"), names.end());
    while (focused() != "offer:ok")
        scene().press(Qt::Key_Tab);
    scene().press(Qt::Key_Return);
    scene().expectGone("offer");
    EXPECT_EQ(readFile(documentPath), good());
}

TEST_F(WindowRecovery, HasRoomForBothButtonsInTheNarrowestWindow) {
    openDamaged();
    window().resize(280, 360);
    scene().settle();
    const auto place = [&](const QString& name) {
        const auto* item = scene().item(name);
        return item->mapRectToScene(item->boundingRect());
    };
    EXPECT_TRUE(until([&] { return place("offer").right() <= 280; }));
    EXPECT_GE(place("offer:no").left(), place("offer").left());
    EXPECT_LE(place("offer:no").right(), place("offer:ok").left());
    EXPECT_LE(place("offer:ok").right(), place("offer").right());
    EXPECT_LE(place("offer:ok").bottom(), place("offer").bottom());
}

TEST_F(WindowRecovery, WaitsUntilANoticeIsReadWhereThereIsNoRoomForBoth) {
    openDamaged();
    window().resize(280, 360);
    host().appearance().forceTextScale(2);
    host().settings().showProblems({"cannot write to the device root /home/parent/.local/share/wardlock"});
    scene().expectGone("offer");
    EXPECT_GE(scene().item("notice")->mapToScene({0, 0}).y(), 0);
    scene().tap("notice:ok");
    scene().item("offer");
    EXPECT_GE(scene().item("offer")->mapToScene({0, 0}).y(), 0);
}

} // namespace wardlock::test
