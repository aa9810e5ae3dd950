#include "tests/support/BusFixture.h"
#include "tests/support/FailingPage.h"
#include "tests/unit/cli/Conversation.h"

#include <csignal>

namespace wardlock::test {
namespace {

/// The commands that lead into the page once it is open and seen.
std::vector<std::string> commandsTo(Entry entry) {
    const std::string press = R"({"do":"tap","row":"Press"})";
    const std::string type = R"({"do":"type","row":"Name","text":"Ann"})";
    const std::string back = R"({"do":"back"})";
    const std::string button = R"({"do":"button"})";
    const std::string drag = R"({"do":"drag"})";
    const std::string ask = R"({"do":"tap","row":"Ask"})";
    const std::string keypad = R"({"do":"tap","row":"Keypad"})";
    const std::string table = R"({"do":"tap","row":"Table"})";
    const std::string mail = R"({"do":"tap","row":"Mail"})";
    const std::string see = R"({"do":"see"})";
    switch (entry) {
    case Entry::ListBuilt:
    case Entry::RowRead:
    case Entry::TitleRead:
    case Entry::PageAppearing:
    case Entry::PageShown:
        return {};
    case Entry::PageLeaving:
    case Entry::PageGone:
        return {back};
    case Entry::RowTapped:
    case Entry::ButtonTapped:
        return {press};
    case Entry::SwitchTapped:
        return {R"({"do":"tap","row":"Switch"})"};
    case Entry::SwitchSet:
        return {R"({"do":"set","row":"Switch","to":true})"};
    case Entry::SliderMoved:
        return {R"({"do":"set","key":"slider","to":5})"};
    case Entry::ChoiceMade:
        return {R"({"do":"tap","row":"Choice"})", R"({"do":"tap","row":"Second"})"};
    case Entry::BarButtonTapped:
        return {button};
    case Entry::ListDragged:
        return {drag};
    case Entry::TypingEndedByReturn:
        return {type, R"({"do":"return"})"};
    case Entry::TypingEndedByATap:
        return {type, press};
    case Entry::TypingEndedByADrag:
        return {type, drag};
    case Entry::TypingEndedByTheBarButton:
        return {type, button};
    case Entry::TypingEndedByGoingBack:
        return {type, back};
    case Entry::TypingEndedByClosing:
        return {type, R"({"do":"quit"})"};
    case Entry::AlertTyped:
        return {ask, R"({"do":"type","text":"why"})"};
    case Entry::AlertButtonTapped:
        return {ask, R"({"do":"choose","action":"Yes"})"};
    case Entry::PasscodeEntered:
        return {keypad, R"({"do":"keypad","digits":"1234"})"};
    case Entry::PasscodeEnteredOtherwise:
        return {keypad, R"({"do":"keypad","passcode":"1234"})"};
    case Entry::KeypadCancelled:
        return {keypad, R"({"do":"keypad","press":"cancel"})"};
    case Entry::EmergencyPressed:
        return {keypad, R"({"do":"keypad","press":"emergency"})"};
    case Entry::TableCounted:
    case Entry::TableRowsCounted:
    case Entry::TableCellMade:
        return {table, see};
    case Entry::TableRowMeasured:
        // A script receives no heights.
        return {};
    case Entry::TableSwitchTapped:
        return {table, R"({"do":"tap","row":0,"section":0})"};
    case Entry::MailCancelled:
        return {mail, R"({"do":"mail","press":"cancel"})"};
    case Entry::MailSent:
        return {mail, R"({"do":"mail","press":"send"})", R"({"do":"wait","for":"mail"})"};
    case Entry::ApplicationResigned:
        return {R"({"do":"resign"})"};
    case Entry::TimeCame:
        return {R"({"do":"tap","row":"Fade"})", R"({"do":"step","seconds":1})"};
    case Entry::OperationRun:
        return {R"({"do":"tap","row":"Queue"})"};
    case Entry::NotificationCame:
        // Another process posts it once the script waits.
        return {};
    }
    return {};
}

std::vector<FailingEntry> entriesOfScripts() {
    std::vector<FailingEntry> entries(failingEntries.begin(), failingEntries.end());
    std::erase_if(entries, [](const auto& entry) { return entry.entry == Entry::TableRowMeasured; });
    return entries;
}

class FailingPageInScript : public BusFixture {
protected:
    FailingPageInScript() {
        makeFolder("/var/mobile/Library/Mail/Outbox");
        environment.unset("DISPLAY");
        environment.unset("WAYLAND_DISPLAY");
    }

    /// Returns the signal that ends a script which opens the page, looks at it and does that.
    static int endOfScript(const std::vector<std::string>& commands) {
        ProcessSetup setup;
        setup.input = "{\"do\":\"tap\",\"row\":\"Failing\"}\n{\"do\":\"see\"}\n";
        for (const std::string& each : commands)
            setup.input += each + '\n';
        return wardlockCommand({"settings", "--script", "-"}, setup).signal;
    }
    int endAtANotification() const {
        Conversation settings(folder() / "commands");
        settings.say(R"({"do":"tap","row":"Failing"})");
        post({"test.failing/change"});
        return settings.process().wait().signal;
    }

    FailingPage failing{root()};
};

class FailingPageEntryInScript : public FailingPageInScript,
                                 public testing::WithParamInterface<FailingEntry> {};

TEST_P(FailingPageEntryInScript, LeavesItsReportAndNoChange) {
    failing.failAt(GetParam().point);
    if (GetParam().entry == Entry::NotificationCame)
        EXPECT_EQ(endAtANotification(), SIGABRT);
    else
        EXPECT_EQ(endOfScript(commandsTo(GetParam().entry)), SIGABRT);
    failing.expectReportOf(GetParam().point);
}

INSTANTIATE_TEST_SUITE_P(, FailingPageEntryInScript, testing::ValuesIn(entriesOfScripts()),
                         [](const auto& info) { return info.param.name; });

TEST_F(FailingPageInScript, LeavesItsReportWhenASignalEndsTyping) {
    failing.failAt("set name");
    Conversation settings(folder() / "commands");
    settings.say(R"({"do":"tap","row":"Failing"})");
    settings.say(R"({"do":"type","row":"Name","text":"Ann"})");
    settings.process().send(SIGTERM);
    EXPECT_EQ(settings.process().wait().signal, SIGABRT);
    failing.expectReportOf("set name");
}

} // namespace
} // namespace wardlock::test
