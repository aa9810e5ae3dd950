// A parent's first evening with Wardlock, from the first account to its deletion, on the demonstration
// device. After each step the document is read from the disk again, and another process prints what it
// received.

#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "shell/device/DemonstrationDevice.h"
#include "tests/support/BuildPaths.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

class WindowStory : public WindowFixture {
protected:
    /// The demonstration device, Settings at Wardlock's first page, and the process that enforces.
    void begin() {
        ASSERT_EQ(shell::furnishDemonstration(), std::vector<std::string>());
        openWardlock();
        const platform::Dictionary defaults = DefaultSettings();
        record_ = platform::MutableDictionary(defaults.find(kAccounts)->array().at(0).dictionary());
        enforcer_ = std::make_unique<Process>(programFolder() + "/test-enforcer",
                                              std::vector<std::string>{"10", std::string(kRestrictSiri)});
        ASSERT_EQ(enforcer_->readLine(), "ready");
        EXPECT_EQ(document(), DefaultSettings());
    }

    void createAnAccount() {
        scene().tap("add");
        scene().item("alert:field");
        scene().type("Child");
        scene().tap("alert:Create");
        scene().item("row:Child");
        record_.set(kAccountName, "Child");
        expectAccount();
        const std::string received = nextReceived();
        EXPECT_EQ(received.rfind("kAccounts = {", 0), 0U) << received;
        EXPECT_NE(received.find("kAccountName = Child;"), std::string::npos) << received;
        EXPECT_TRUE(received.ends_with("; account (null); tweak 0; kRestrictSiri 0")) << received;
    }

    void nameIt() {
        scene().tap("row:Child");
        scene().tap("field:Account Name");
        scene().press(Qt::Key_A, Qt::ControlModifier);
        scene().type("Anna");
        scene().press(Qt::Key_Return);
        record_.set(kAccountName, "Anna");
        expectAccount();
        EXPECT_EQ(nextReceived(), "kAccountName = Anna; account (null); tweak 0; kRestrictSiri 0");
    }

    void enableIt() {
        scene().tap("switch:Enabled");
        record_.set(kAccountEnabled, true);
        expectAccount();
        EXPECT_EQ(nextReceived(), "kAccountEnabled = 1; account Anna; tweak 1; kRestrictSiri 0");
    }

    void restrictAnApplication(const std::string& identifier) {
        const QString control = "switch:" + QString::fromStdString(identifier);
        scene().reveal(control);
        EXPECT_FALSE(scene().item(control)->property("on").toBool());
        scene().tap(control);
        EXPECT_TRUE(scene().item(control)->property("on").toBool());
        platform::MutableArray restricted(record_.find(kAppsRestricted)->array());
        restricted.append(identifier);
        record_.set(kAppsRestricted, restricted.copy());
        expectAccount();
        const std::string received = nextReceived();
        EXPECT_EQ(received.rfind("kAppsRestricted = (", 0), 0U) << received;
        EXPECT_NE(received.find(identifier), std::string::npos) << received;
    }

    void restrictThreeApplications() {
        scene().tap("row:Apps");
        scene().item("page:Apps");
        for (const char* identifier : {"org.example.bramble", "org.example.fjord"})
            restrictAnApplication(identifier);
        scene().press(Qt::Key_F, Qt::ControlModifier);
        scene().item("search");
        scene().type("zebra");
        restrictAnApplication("org.example.zebrarun");
        scene().tap("back");
        scene().expectGone("page:Apps");
    }

    void restrictSiri() {
        scene().reveal("switch:Siri");
        scene().tap("switch:Siri");
        record_.set(kRestrictSiri, true);
        expectAccount();
        EXPECT_EQ(nextReceived(), "kRestrictSiri = 1; account Anna; tweak 1; kRestrictSiri 1");
        scene().tap("back");
        scene().item("row:Passcode");
    }

    void openKeypad(const std::string& status) {
        scene().tap("row:Passcode");
        clock.step(fade);
        EXPECT_EQ(scene().text("keypad:status"), status);
    }

    void enter(const std::string& passcode) {
        for (const char digit : passcode)
            scene().tap(QString("key:%1").arg(QLatin1Char(digit)));
    }

    void setAPasscode() {
        openKeypad("Enter New Passcode");
        enter("1234");
        expectPasscode("1234");
    }

    void changeItAfterTwoWrongTries() {
        openKeypad("Enter Current Passcode");
        for (const char* wrong : {"4321", "0000"}) {
            enter(wrong);
            EXPECT_EQ(scene().text("keypad:status"), "Enter Current Passcode");
            EXPECT_EQ(document().find(kPasscode)->string(), "1234");
        }
        enter("1234");
        EXPECT_EQ(scene().text("keypad:status"), "Enter New Passcode");
        EXPECT_EQ(document().find(kPasscode)->string(), "1234");
        enter("2580");
        expectPasscode("2580");
    }

    void deleteTheAccount() {
        scene().tap("row:Anna");
        scene().reveal("row:Delete Account");
        scene().tap("row:Delete Account");
        scene().tap("alert:Delete");
        scene().item("row:Default");
        scene().expectGone("row:Anna");
        platform::MutableDictionary expected(DefaultSettings());
        expected.set(kPasscode, "2580");
        EXPECT_EQ(document(), expected.copy());
        const std::string received = nextReceived();
        EXPECT_EQ(received.rfind("kAccounts = (", 0), 0U) << received;
        EXPECT_EQ(received.find("Anna"), std::string::npos) << received;
        EXPECT_TRUE(received.ends_with("; account (null); tweak 0; kRestrictSiri 0")) << received;
        EXPECT_EQ(enforcer_->wait().exitCode, 0);
    }

private:
    /// The other process prints a description over several lines: up to the one with the outcome.
    std::string nextReceived() {
        std::string received;
        while (const auto line = enforcer_->readLine()) {
            received += received.empty() ? *line : '\n' + *line;
            if (received.find("; kRestrictSiri ") != std::string::npos)
                break;
        }
        return received;
    }

    /// The document is the default one and, behind its account, the story's.
    void expectAccount() const {
        platform::MutableDictionary expected(DefaultSettings());
        platform::MutableArray accounts(expected.find(kAccounts)->array());
        accounts.append(record_.copy());
        expected.set(kAccounts, accounts.copy());
        EXPECT_EQ(document(), expected.copy());
    }

    void expectPasscode(const std::string& passcode) {
        EXPECT_EQ(document().find(kPasscode)->string(), passcode);
        EXPECT_EQ(accountNames(), (std::vector<std::string>{"Default", "Anna"}));
        EXPECT_EQ(nextReceived(), "kPasscode = " + passcode + "; account Anna; tweak 1; kRestrictSiri 1");
        clock.step(fade);
        scene().expectGone("keypad:status");
    }

    static constexpr double fade = 0.4;

    platform::MutableDictionary record_;
    std::unique_ptr<Process> enforcer_;
};

TEST_F(WindowStory, LeadsFromTheFirstAccountToItsDeletion) {
    begin();
    createAnAccount();
    nameIt();
    enableIt();
    restrictThreeApplications();
    restrictSiri();
    setAPasscode();
    changeItAfterTwoWrongTries();
    deleteTheAccount();
}

} // namespace wardlock::test
