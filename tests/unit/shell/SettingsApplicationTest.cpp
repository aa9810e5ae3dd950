#include "platform/files/StringFile.h"
#include "platform/ui/UITextView.h"
#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"

using platform::MailOutcome;
using wardlock::test::SettingsApplicationFixture;

namespace {

constexpr const char* bundlePath = "/Library/PreferenceBundles/WardlockSettings.bundle";

/// The whole application over the bundle of this build.
class SettingsApplication : public SettingsApplicationFixture {
protected:
    void openWardlock(double transitionSeconds = 0) {
        start(transitionSeconds);
        tap("Wardlock");
    }
    std::string passcode() { return std::string(document().find(wardlock::kPasscode)->string()); }
    std::size_t accountCount() { return document().find(wardlock::kAccounts)->array().size(); }
};

} // namespace

TEST_F(SettingsApplication, OpensOnTheListOfBundles) {
    start();
    EXPECT_EQ(page().title(), "Settings");
    EXPECT_EQ(labels(), std::vector<std::string>{"Wardlock"});
    EXPECT_EQ(settings().screen().backTitle(), "");
    EXPECT_FALSE(settings().page().goBack());
}

TEST_F(SettingsApplication, ShowsABundlesFirstPageUnderItsName) {
    openWardlock();
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_EQ(settings().screen().backTitle(), "Settings");
    EXPECT_TRUE(page().barButton());
    EXPECT_TRUE(row("Enabled").isOn());
}

TEST_F(SettingsApplication, ShowsWhyABundleCannotBeOpened) {
    writeFile("/Library/PreferenceBundles/Broken.bundle/Info.plist",
              "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>none</string>"
              "<key>NSPrincipalClass</key><string>C</string></dict></plist>");
    start();
    tap("Broken");
    ASSERT_TRUE(settings().screen().alert());
    EXPECT_EQ(settings().screen().alert()->title(), "Cannot Open Broken");
    EXPECT_FALSE(settings().screen().alert()->message().empty());
    chooseInAlert("OK");
    EXPECT_EQ(page().title(), "Settings");
}

TEST_F(SettingsApplication, RefusesTapsWhileThePageMoves) {
    openWardlock(0.35);
    EXPECT_EQ(settings().page().tapRow({0, 0}).reason(), "the page is still moving");
    clock.step(0.35);
    EXPECT_TRUE(settings().page().tapRow({0, 0}));
}

TEST_F(SettingsApplication, WritesASwitchAndAnnouncesItOnce) {
    openWardlock();
    tap("Enabled");
    EXPECT_FALSE(document().find(wardlock::kEnabled)->boolean());
    ASSERT_EQ(center.posts.size(), 1U);
    EXPECT_EQ(center.posts[0].name, "com.tavix.wardlock/update");
    EXPECT_EQ(center.posts[0].userInfo.find("key")->string(), "kEnabled");
}

TEST_F(SettingsApplication, SetsAPasscodeOnTheKeypad) {
    openWardlock();
    tap("Passcode");
    ASSERT_TRUE(settings().screen().overlay());
    EXPECT_EQ(settings().screen().overlay()->keypad->shownText(), "Enter New Passcode");
    EXPECT_EQ(settings().page().tapRow(pathOf("Enabled")).reason(), "the keypad covers the page");
    press("12");
    EXPECT_EQ(settings().screen().overlay()->keypad->passcode().size(), 2U);
    press("34");
    EXPECT_EQ(passcode(), "1234");
    EXPECT_EQ(settings().sheets().pressDigit(5).reason(), "the keypad is fading out");
    clock.step(0.4);
    EXPECT_FALSE(settings().screen().overlay());
}

TEST_F(SettingsApplication, AcceptsOnlyAWholePasscodeOfFourDigits) {
    openWardlock();
    tap("Passcode");
    for (const char* none : {"", "123", "12345", "12a4"})
        EXPECT_EQ(settings().sheets().enterPasscode(none).reason(), "a passcode has four digits");
    EXPECT_EQ(passcode(), "");
    EXPECT_TRUE(settings().sheets().enterPasscode("0815"));
    EXPECT_EQ(passcode(), "0815");
    EXPECT_EQ(settings().sheets().enterPasscode("4711").reason(), "the keypad is fading out");
    EXPECT_EQ(passcode(), "0815");
}

TEST_F(SettingsApplication, FadesTheOverlayOnTheClock) {
    openWardlock();
    tap("Passcode");
    const auto overlay = *settings().screen().overlay();
    ASSERT_TRUE(overlay.blur);
    EXPECT_EQ(overlay.keypad->presentationAlpha(), 0);
    clock.step(0.2);
    EXPECT_NEAR(overlay.keypad->presentationAlpha(), 0.5, 1e-9);
    EXPECT_NEAR(overlay.blur->presentationAlpha(), 0.5, 1e-9);
    clock.step(0.2);
    EXPECT_EQ(overlay.blur->presentationAlpha(), 1);
}

TEST_F(SettingsApplication, CancelsTheKeypadWhenItResignsActive) {
    openWardlock();
    tap("Passcode");
    clock.step(0.4);
    settings().resignActive();
    clock.step(0.4);
    EXPECT_FALSE(settings().screen().overlay());
    EXPECT_EQ(passcode(), "");
}

TEST_F(SettingsApplication, CancelsTheKeypadThatFollowedOneThatWasClosedTwice) {
    openWardlock();
    tap("Passcode");
    clock.step(0.4);
    EXPECT_TRUE(settings().sheets().cancelKeypad());
    clock.step(0.3);
    settings().resignActive();
    clock.step(0.1);
    tap("Passcode");
    clock.step(0.4);
    ASSERT_TRUE(settings().screen().overlay());
    settings().resignActive();
    clock.step(0.4);
    EXPECT_FALSE(settings().screen().overlay()) << "it was forgotten when the other one's second fade ended";
}

TEST_F(SettingsApplication, EndsFadesAndPushesInSteps) {
    start(0.3);
    const auto stepped = [this](int count, double seconds) {
        for (int step = 0; step < count; ++step)
            clock.step(seconds);
    };
    clock.step(0.7);
    tap("Wardlock");
    stepped(2, 0.1);
    EXPECT_TRUE(settings().screen().isInTransition());
    clock.step(0.1);
    EXPECT_FALSE(settings().screen().isInTransition());
    tap("Passcode");
    stepped(8, 0.05);
    const auto overlay = *settings().screen().overlay();
    EXPECT_EQ(overlay.keypad->presentationAlpha(), 1);
    EXPECT_EQ(overlay.blur->presentationAlpha(), 1);
    EXPECT_TRUE(settings().sheets().cancelKeypad());
    stepped(10, 0.04);
    EXPECT_FALSE(settings().screen().overlay());
}

TEST_F(SettingsApplication, HidesTheEmergencyButton) {
    openWardlock();
    tap("Passcode");
    EXPECT_EQ(settings().sheets().pressEmergency().reason(), "the keypad shows no emergency button");
}

TEST_F(SettingsApplication, CreatesAnAccount) {
    openWardlock();
    EXPECT_TRUE(settings().page().tapBarButton());
    ASSERT_TRUE(settings().screen().alert());
    EXPECT_EQ(settings().sheets().chooseAlertAction(1).reason(), "the button is disabled");
    EXPECT_TRUE(settings().sheets().typeIntoAlert(0, "Tom"));
    chooseInAlert("Create");
    EXPECT_EQ(accountCount(), 2U);
    EXPECT_TRUE(hasRow("Tom"));
}

TEST_F(SettingsApplication, RenamesTheAccountThatWasTapped) {
    start();
    writeDocument(documentOf({"Ann", "Tom"}));
    tap("Wardlock");
    tap("Tom");
    EXPECT_EQ(page().title(), "Tom");
    type("Account Name", "Thomas");
    EXPECT_TRUE(settings().page().goBack());
    const auto accounts = document().find(wardlock::kAccounts)->array();
    EXPECT_EQ(accounts.at(0).dictionary().find(wardlock::kAccountName)->string(), "Ann");
    EXPECT_EQ(accounts.at(1).dictionary().find(wardlock::kAccountName)->string(), "Thomas");
    EXPECT_TRUE(hasRow("Thomas"));
}

TEST_F(SettingsApplication, DeletesAnAccountAndReturns) {
    start();
    writeDocument(documentOf({"Ann", "Tom"}));
    tap("Wardlock");
    tap("Tom");
    type("Account Name", "Thomas");
    tap("Delete Account");
    chooseInAlert("Delete");
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_EQ(accountCount(), 1U);
    EXPECT_FALSE(hasRow("Thomas"));
    EXPECT_TRUE(hasRow("Ann"));
}

TEST_F(SettingsApplication, OpensTheProfilesUrl) {
    openWardlock();
    tap("@TavixCo");
    EXPECT_EQ(urls.opened, std::vector<std::string>{"twitter://user?screen_name=TavixCo"});
}

TEST_F(SettingsApplication, ShowsTheChangeLogAsText) {
    openWardlock();
    tap("Change Log");
    EXPECT_EQ(page().title(), "Change Log");
    EXPECT_FALSE(page().isList());
    const auto text = page().contentView<platform::UITextView>();
    ASSERT_TRUE(text);
    EXPECT_EQ(text->text(),
              platform::stringWithContentsOfFile(onDisk(bundlePath) + "/changelog.txt").value_or(""));
    EXPECT_FALSE(text->isEditable());
}

TEST_F(SettingsApplication, SendsTheSupportMailAndShowsTheResult) {
    openWardlock();
    const auto path = platform::NSIndexPath{2, 1};
    EXPECT_TRUE(settings().page().tapRow(path));
    ASSERT_TRUE(settings().screen().composer());
    EXPECT_EQ(settings().page().tapRow({0, 0}).reason(), "the mail sheet covers the page");
    EXPECT_TRUE(settings().sheets().setSubject("Help"));
    EXPECT_TRUE(settings().sheets().setRecipients({"a@example.org", "b@example.org"}));
    EXPECT_TRUE(settings().sheets().setBody("Hello"));
    EXPECT_TRUE(settings().sheets().sendMail());
    ASSERT_EQ(mail.sent.size(), 1U);
    EXPECT_EQ(mail.sent[0].subject, "Help");
    EXPECT_EQ(mail.sent[0].recipients.size(), 2U);
    EXPECT_EQ(settings().sheets().cancelMail().reason(), "the mail is being sent");
    settings().run([&] { mail.finish({MailOutcome::Kind::HandedOver, "Thunderbird has the mail."}); });
    EXPECT_FALSE(settings().screen().composer());
    EXPECT_EQ(settings().screen().notice(), "Thunderbird has the mail.");
    settings().dismissNotice();
    EXPECT_EQ(settings().screen().notice(), "");
}

TEST_F(SettingsApplication, ShowsNoNoticeForACancelledMail) {
    openWardlock();
    EXPECT_TRUE(settings().page().tapRow({2, 1}));
    EXPECT_TRUE(settings().sheets().cancelMail());
    EXPECT_FALSE(settings().screen().composer());
    EXPECT_EQ(settings().screen().notice(), "");
    EXPECT_TRUE(mail.sent.empty());
}

TEST_F(SettingsApplication, ShowsNoMailSheetWhenNoMailCanBeSent) {
    openWardlock();
    mail.canSend = false;
    EXPECT_TRUE(settings().page().tapRow({2, 1}));
    EXPECT_FALSE(settings().screen().composer());
}
