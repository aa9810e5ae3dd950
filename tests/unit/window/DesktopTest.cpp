#include "platform/services/RunningProgram.h"
#include "shell/device/Provision.h"
#include "tests/support/BuildPaths.h"
#include "tests/unit/window/WindowFixture.h"
#include "window/Graphics.h"
#include "window/WindowMemory.h"
#include "window/items/RowIcon.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include <filesystem>

namespace wardlock::test {

/// What users of a desktop expect of any window.
class WindowOnDesktop : public WindowFixture {
protected:
    std::string title() { return window().title().toStdString(); }
    double textScale() { return host().appearance().textScale(); }
    /// Opens the window as a start of the program does.
    void openRemembering() {
        open();
        host().rememberPlace();
    }
};

TEST_F(WindowOnDesktop, HasThePagesNameInItsTitle) {
    open();
    EXPECT_EQ(title(), "Settings");
    scene().tap("row:Wardlock");
    EXPECT_EQ(title(), "Wardlock – Settings");
    scene().tap("row:Default");
    EXPECT_EQ(title(), "Default – Settings");
    scene().tap("back");
    EXPECT_EQ(title(), "Wardlock – Settings");
    scene().tap("back");
    EXPECT_EQ(title(), "Settings");
}

TEST_F(WindowOnDesktop, FollowsTheNameOfTheAccountInItsTitle) {
    setAccounts({"Ann"});
    openAccount();
    setInAccount(0, "kAccountName", "Tom");
    announce();
    EXPECT_EQ(title(), "Tom – Settings");
}

TEST_F(WindowOnDesktop, HasAnIcon) {
    const QIcon icon = window::programIcon();
    EXPECT_EQ(icon.actualSize({128, 128}), QSize(128, 128));
    EXPECT_EQ(icon.actualSize({48, 48}), QSize(48, 48));
}

TEST_F(WindowOnDesktop, IsClosedByItsKeys) {
    for (const int key : {Qt::Key_Q, Qt::Key_W}) {
        open();
        scene().press(key, Qt::ControlModifier);
        EXPECT_TRUE(until([&] { return !window().isVisible(); })) << key;
        quit();
    }
}

TEST_F(WindowOnDesktop, StoresWhatIsTypedWhenItIsClosedByItsKeys) {
    openAccount();
    scene().tap("field:Account Name");
    scene().press(Qt::Key_A, Qt::ControlModifier);
    scene().type("Tom");
    scene().press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return !window().isVisible(); }));
    EXPECT_EQ(accountNames(), std::vector<std::string>{"Tom"});
}

TEST_F(WindowOnDesktop, ShowsTheUserGuideUntilItIsLeft) {
    openWardlock();
    scene().press(Qt::Key_F1);
    scene().item("guide");
    EXPECT_NE(scene().text("sheet:words").find("## The passcode"), std::string::npos);
    EXPECT_NE(scene().text("sheet:words").find("- **F1**: shows this guide\n"), std::string::npos);
    EXPECT_EQ(scene().text("sheet:words").find('|'), std::string::npos);
    EXPECT_EQ(scene().text("sheet:words").find("]("), std::string::npos);
    EXPECT_EQ(scene().text("sheet:words").find('`'), std::string::npos) << "code has letters of one size";
    EXPECT_NE(scene().text("sheet:words").find("use *wardlock settings --plain*."), std::string::npos);
    scene().press(Qt::Key_End);
    EXPECT_GT(scene().item("sheet:scroll")->property("contentY").toDouble(), 1000);
    scene().press(Qt::Key_Escape);
    scene().expectGone("guide");
    EXPECT_EQ(scene().text("title"), "Wardlock");
    scene().press(Qt::Key_F1);
    ASSERT_TRUE(until([&] { return scene().item("guide")->y() == 24; }));
    scene().tap("sheet:done");
    scene().expectGone("guide");
    scene().press(Qt::Key_Escape);
    EXPECT_EQ(scene().text("title"), "Settings");
}

TEST_F(WindowOnDesktop, ShowsNoUserGuideOverTheKeypad) {
    openWardlock();
    scene().tap("row:Passcode");
    clock.step(1);
    scene().item("keypad:status");
    scene().press(Qt::Key_F1);
    scene().settle();
    EXPECT_FALSE(scene().shows("guide"));
}

TEST_F(WindowOnDesktop, ChangesTheSizeOfItsTextByKeys) {
    open();
    const double height = scene().item("row:Wardlock")->height();
    scene().press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(textScale(), 1.1);
    scene().press(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(textScale(), 1.25);
    EXPECT_TRUE(until([&] { return scene().item("row:Wardlock")->height() == 1.25 * height; }));
    scene().press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(textScale(), 1.1);
    scene().press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(textScale(), 1);
}

TEST_F(WindowOnDesktop, KeepsTheSizeOfItsTextWithinItsBounds) {
    open();
    for (int i = 0; i < 20; ++i)
        scene().press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(textScale(), 2.5);
    for (int i = 0; i < 20; ++i)
        scene().press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(textScale(), 0.8);
}

TEST_F(WindowOnDesktop, RemembersTheChosenSizeOfItsText) {
    openRemembering();
    host().appearance().forceTextScale(std::nullopt);
    scene().press(Qt::Key_Plus, Qt::ControlModifier);
    const double chosen = textScale();
    EXPECT_GT(chosen, 1);
    quit();
    open();
    host().appearance().forceTextScale(std::nullopt);
    host().rememberPlace();
    EXPECT_EQ(textScale(), chosen);
    scene().press(Qt::Key_0, Qt::ControlModifier);
    quit();
    open();
    host().appearance().forceTextScale(std::nullopt);
    host().rememberPlace();
    EXPECT_EQ(textScale(), 1);
}

TEST_F(WindowOnDesktop, PrefersTheSizeOfTextOfItsOptionToTheRememberedOne) {
    openRemembering();
    scene().press(Qt::Key_Plus, Qt::ControlModifier);
    quit();
    openRemembering();
    EXPECT_EQ(textScale(), 1);
}

TEST_F(WindowOnDesktop, ReturnsToItsSizeAndPlace) {
    openRemembering();
    const QRect place(120, 60, 500, 400);
    window().setGeometry(place);
    ASSERT_TRUE(until([&] { return window().geometry() == place; }));
    scene().settle();
    quit();
    openRemembering();
    EXPECT_TRUE(until([&] { return window().geometry() == place; }));
}

TEST_F(WindowOnDesktop, RemembersNothingInTheDeviceRoot) {
    openRemembering();
    window().resize(500, 400);
    scene().settle();
    quit();
    EXPECT_TRUE(std::filesystem::exists(folder() / "config/wardlock/window.ini"));
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root()))
        EXPECT_NE(entry.path().filename(), "window.ini");
}

TEST_F(WindowOnDesktop, FitsTheScreenAtItsFirstStart) {
    open(0, {390, 4000});
    host().rememberPlace();
    const int available = QGuiApplication::primaryScreen()->availableGeometry().height();
    EXPECT_TRUE(until([&] { return window().height() < available; }));
    EXPECT_EQ(window().width(), 390);
}

TEST_F(WindowOnDesktop, HasThePicturesOfItsFirstPageBeforeItAppears) {
    const shell::Provision provision;
    window::WindowHost first(clock, 0);
    first.show();
    // Without another turn of the loop, in which the first frame may be drawn.
    const auto* row = Scene(*first.window()).find("row:Wardlock");
    ASSERT_TRUE(row);
    auto* icon = row->findChild<window::RowIcon*>();
    ASSERT_TRUE(icon);
    QImage drawn(icon->size().toSize(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    icon->paint(painter);
    EXPECT_NE(drawn.pixelColor(drawn.rect().center()), QColor(Qt::transparent));
}

TEST_F(WindowOnDesktop, IsCompleteInItsFirstFrame) {
    const shell::Provision provision;
    window::WindowHost first(clock, 0);
    first.appearance().force(false);
    QImage frame;
    // Within the frame itself there is nothing to grab.
    QObject::connect(
        first.window(), &QQuickWindow::frameSwapped, first.window(),
        [&] {
            if (frame.isNull())
                frame = first.window()->grabWindow();
        },
        Qt::QueuedConnection);
    first.show();
    ASSERT_TRUE(until([&] { return !frame.isNull(); }));
    Scene(*first.window()).settle();
    EXPECT_EQ(frame, first.window()->grabWindow());
    const auto* row = Scene(*first.window()).item("row:Wardlock");
    const QPoint icon = row->mapToScene({30, row->height() / 2}).toPoint();
    EXPECT_NE(frame.pixelColor(icon), QColor(Qt::white));
}

TEST_F(WindowOnDesktop, ComesToTheFrontWithALaterStart) {
    open();
    std::string token;
    const auto start =
        platform::startProgram("Settings", platform::StartedBy::User, "", [&](const std::string& later) {
            token = later;
            host().raise(later);
        });
    ASSERT_TRUE(start.running);
    window().showMinimized();
    ProcessSetup setup;
    setup.environment = {{"QT_QPA_PLATFORM", "offscreen"}, {"XDG_ACTIVATION_TOKEN", "of the desktop"}};
    Process later(programFolder() + "/wardlock-settings", {}, setup);
    EXPECT_TRUE(until([&] { return !token.empty(); }));
    EXPECT_EQ(token, "of the desktop");
    EXPECT_FALSE(window().windowStates() & Qt::WindowMinimized);
    const auto ended = later.wait();
    EXPECT_EQ(ended.exitCode, 0);
    EXPECT_EQ(ended.errors, "");
}

TEST(WindowPlace, StaysWhereItFits) {
    EXPECT_EQ(window::heldWithin({0, 0, 1366, 768}, {100, 50, 390, 600}), QRect(100, 50, 390, 600));
}

TEST(WindowPlace, IsCutToTheScreen) {
    EXPECT_EQ(window::heldWithin({0, 30, 1366, 738}, {100, 50, 390, 844}), QRect(100, 30, 390, 738));
    EXPECT_EQ(window::heldWithin({0, 0, 1366, 768}, {0, 0, 4000, 4000}), QRect(0, 0, 1366, 768));
}

TEST(WindowPlace, ReturnsFromBeyondTheScreen) {
    EXPECT_EQ(window::heldWithin({0, 0, 1366, 768}, {3000, 2000, 390, 600}), QRect(976, 168, 390, 600));
    EXPECT_EQ(window::heldWithin({1366, 0, 1366, 768}, {100, -50, 390, 600}), QRect(1366, 0, 390, 600));
}

TEST_F(WindowOnDesktop, ReturnsMaximised) {
    const shell::Provision provision;
    const auto isMaximised = [](const window::WindowHost& host) {
        return (host.window()->windowStates() & Qt::WindowMaximized) != 0;
    };
    {
        window::WindowHost first(clock, 0);
        first.rememberPlace();
        first.show();
        first.window()->setWindowStates(Qt::WindowMaximized);
        ASSERT_TRUE(until([&] { return first.window()->isExposed() && isMaximised(first); }));
    }
    window::WindowHost second(clock, 0);
    second.rememberPlace();
    second.show();
    ASSERT_TRUE(until([&] { return second.window()->isExposed(); }));
    EXPECT_TRUE(isMaximised(second));
}

} // namespace wardlock::test
