// The window of Settings as a screen reader of another process finds it, through the desktop's own registry.

#include "platform/plist/PropertyListFile.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusDaemons.h"
#include "tests/support/BusFixture.h"
#include "tests/support/TestTimeout.h"
#include "tests/system/accessibility/ScreenReader.h"

#include <algorithm>

namespace wardlock::test {

using platform::Array;
using platform::Dictionary;
using platform::MutableDictionary;

/// A desktop of the test's own: a display in memory, a session's bus, the registry, and a screen reader,
/// which is this process.
class AssistedWindow : public BusFixture {
protected:
    AssistedWindow() {
        // The address of the registry would be read from another display.
        environment.unset("DISPLAY");
        environment.unset("AT_SPI_BUS_ADDRESS");
        environment.unset("WAYLAND_DISPLAY");
        environment.set("QT_QUICK_BACKEND", "software");
        display_ = std::make_unique<Process>(
            programPath("Xvfb"),
            std::vector<std::string>{"-displayfd", "1", "-screen", "0", "800x900x24", "-nolisten", "tcp"});
        registry_ = std::make_unique<Process>("/usr/libexec/at-spi-bus-launcher",
                                              std::vector<std::string>{"--launch-immediately"});
        const auto waited =
            runProcess(programPath("gdbus"), {"wait", "--session", "--timeout",
                                              std::to_string(testTimeout.count()), "org.a11y.Bus"});
        EXPECT_EQ(waited.exitCode, 0) << waited.errors;
        reader = std::make_unique<ScreenReader>();
    }
    ~AssistedWindow() override {
        window_.reset();
        reader.reset();
        atspi_exit();
        registry_.reset();
        // The launcher has started it, and it outlives the launcher.
        for (const int daemon : processesNaming("=unix:path=" + folder() / "run/at-spi/bus"))
            endBusDaemon(daemon);
    }

    /// Opens the window, and in it the pages of these titles.
    void open(const std::vector<std::string>& pages = {}) {
        const auto number = display_->readLine();
        ASSERT_TRUE(number) << "no display";
        ProcessSetup setup;
        setup.environment = {{"DISPLAY", ":" + *number},
                             {"QT_QPA_PLATFORM", "xcb"},
                             {"XDG_DATA_DIRS", folder() / "desktop"},
                             {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"}};
        window_ = std::make_unique<Process>(programFolder() + "/wardlock-settings",
                                            std::vector<std::string>{}, setup);
        reader->element("list: Settings");
        for (const std::string& page : pages) {
            EXPECT_TRUE(reader->element("link: " + page).press());
            // The list can be used once the page is in its place.
            reader->element("list: " + page);
        }
    }
    void press(const std::string& title) { EXPECT_TRUE(reader->element(title).press()) << title; }
    bool disappears(const std::string& title) {
        return reader->until([&] { return !reader->shows(title); });
    }

    void writeDocument(const Dictionary& document) const {
        ASSERT_TRUE(platform::writeToFileAtomically(document, documentPath));
    }
    static MutableDictionary defaults() { return MutableDictionary(DefaultSettings()); }
    bool isStored(std::string_view key, const platform::Value& value) {
        const auto document = platform::dictionaryWithContentsOfFile(documentPath);
        const auto* stored = document ? document->find(key) : nullptr;
        return stored && *stored == value;
    }

    std::unique_ptr<ScreenReader> reader;

private:
    std::unique_ptr<Process> display_;
    std::unique_ptr<Process> registry_;
    std::unique_ptr<Process> window_;
};

TEST_F(AssistedWindow, HasNamesRolesAndStates) {
    open({"Wardlock"});
    for (const char* title : {"push button: Back to Settings", "push button: Search", "push button: Add",
                              "list: Wardlock", "heading: Accounts", "link: Default", "link: Change Log"})
        reader->element(title);
    const Element enabled = reader->element("check box: Enabled");
    EXPECT_TRUE(enabled.is(ATSPI_STATE_FOCUSABLE));
    EXPECT_TRUE(enabled.is(ATSPI_STATE_SENSITIVE));
    EXPECT_TRUE(enabled.is(ATSPI_STATE_CHECKED));
    EXPECT_FALSE(enabled.is(ATSPI_STATE_MODAL));
}

TEST_F(AssistedWindow, StoresASwitchThatIsPressed) {
    open({"Wardlock"});
    const Element enabled = reader->element("check box: Enabled");
    EXPECT_TRUE(isStored(kEnabled, true));
    EXPECT_TRUE(enabled.press());
    EXPECT_TRUE(reader->until([&] { return isStored(kEnabled, false); }));
    EXPECT_TRUE(
        reader->until([&] { return !reader->element("check box: Enabled").is(ATSPI_STATE_CHECKED); }));
    EXPECT_TRUE(reader->until([&] { return !reader->checkedChanges().empty(); }));
    EXPECT_EQ(reader->checkedChanges().front(), "check box: Enabled");
}

TEST_F(AssistedWindow, AnnouncesThePageThatIsShown) {
    open({"Wardlock", "Default"});
    EXPECT_TRUE(reader->hears("Default"));
    press("push button: Back to Wardlock");
    EXPECT_TRUE(reader->until([&] { return reader->announcements().size() == 3; }));
    EXPECT_EQ(reader->announcements(), (std::vector<std::string>{"Wardlock", "Default", "Wardlock"}));
}

TEST_F(AssistedWindow, AnnouncesEachWrongPasscodeAndThatTheLastOneClosesTheKeypad) {
    MutableDictionary document = defaults();
    document.set(kPasscode, "1234");
    writeDocument(document.copy());
    open({"Wardlock"});
    press("push button: Passcode");
    EXPECT_TRUE(reader->element("dialog: Enter Current Passcode").is(ATSPI_STATE_MODAL));
    const Element nine = reader->element("push button: 9");
    for (std::size_t attempt = 1; attempt <= 4; ++attempt) {
        for (int digit = 0; digit < 4; ++digit)
            EXPECT_TRUE(nine.press());
        EXPECT_TRUE(reader->until([&] { return reader->announcements().size() == 1 + attempt; })) << attempt;
    }
    EXPECT_EQ(reader->announcements(),
              (std::vector<std::string>{"Wardlock", "Wrong passcode", "Wrong passcode", "Wrong passcode",
                                        "Wrong passcode. The keypad is closed."}));
    EXPECT_TRUE(disappears("dialog: Enter Current Passcode"));
    reader->element("push button: Passcode");
}

TEST_F(AssistedWindow, AnnouncesThePageAfterTheRightPasscodeOfTheGuard) {
    MutableDictionary document = defaults();
    MutableDictionary account(document.find(kAccounts)->array().at(0).dictionary());
    account.set(kAccountEnabled, true);
    document.set(kAccounts, Array{account.copy()});
    document.set(kPasscode, "1212");
    writeDocument(document.copy());
    open();
    press("link: Wardlock");
    const Element one = reader->element("push button: 1");
    const Element two = reader->element("push button: 2");
    for (const Element* digit : {&one, &one, &one, &one})
        EXPECT_TRUE(digit->press());
    EXPECT_TRUE(reader->hears("Wrong passcode"));
    for (const Element* digit : {&one, &two, &one, &two})
        EXPECT_TRUE(digit->press());
    reader->element("list: Wardlock");
    EXPECT_TRUE(reader->hears("Wardlock"));
    EXPECT_EQ(reader->announcements(), (std::vector<std::string>{"Wrong passcode", "Wardlock"}));
}

TEST_F(AssistedWindow, AnnouncesANotice) {
    MutableDictionary document = defaults();
    MutableDictionary account(document.find(kAccounts)->array().at(0).dictionary());
    account.set(kAccountName, "Ann");
    document.set(kAccounts, Array{account.copy()});
    writeDocument(document.copy());
    open({"Wardlock", "Ann"});
    document.set(kAccounts, Array{});
    writeDocument(document.copy());
    post({"com.tavix.wardlock/update"});
    EXPECT_TRUE(reader->hears("Another program removed the account \u201cAnn\u201d."));
    press("push button: OK");
    EXPECT_TRUE(disappears("push button: OK"));
}

TEST_F(AssistedWindow, HidesThePageBeneathADialog) {
    open({"Wardlock"});
    press("push button: Add");
    const Element alert = reader->element("alert: New Account");
    EXPECT_TRUE(alert.is(ATSPI_STATE_MODAL));
    for (const Element& element : reader->elements())
        EXPECT_NE(element.title(), "push button: Passcode");
    press("push button: Cancel");
    EXPECT_TRUE(disappears("alert: New Account"));
    reader->element("push button: Passcode");
}

TEST_F(AssistedWindow, HasOnlyButtonsThatCanBeSeenAndPressedAndHaveAName) {
    open({"Wardlock", "Default"});
    int buttons = 0;
    for (const Element& element : reader->elements()) {
        if (element.role() != "push button")
            continue;
        ++buttons;
        EXPECT_NE(element.name(), "");
        EXPECT_TRUE(element.is(ATSPI_STATE_SHOWING)) << element.name();
        EXPECT_TRUE(element.canBePressed()) << element.name();
    }
    EXPECT_GE(buttons, 2);
}

TEST_F(AssistedWindow, ReportsThePlaceOfARowAmongAllRowsOfALongPage) {
    for (int i = 0; i < 60; ++i) {
        const std::string name = "App " + std::to_string(100 + i);
        writeFile("/Applications/" + name + ".app/Info.plist",
                  "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>org.app" +
                      std::to_string(i) + "</string><key>CFBundleDisplayName</key><string>" + name +
                      "</string></dict></plist>");
    }
    open({"Wardlock", "Default", "Apps"});
    // Behind the nine that are restricted from the start.
    EXPECT_EQ(reader->element("check box: App 100").description(), "10 of 69");
    EXPECT_EQ(reader->element("check box: App 107").description(), "17 of 69");
}

} // namespace wardlock::test
