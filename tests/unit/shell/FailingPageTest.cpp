#include "tests/support/FailingPage.h"

#include "platform/runtime/CFNotificationCenterClass.h"
#include "platform/runtime/MainLoop.h"
#include "shell/TerminationHook.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"
#include "tests/support/SettingsApplicationFixture.h"
#include "tests/support/TestBus.h"
#include "tests/support/TestTimeout.h"

#include <csignal>
#include <poll.h>

namespace wardlock::test {
namespace {

/// What a failing page leaves where nothing but the shell has entered it.
class FailingPageInShell : public SettingsApplicationFixture {
protected:
    FailingPageInShell() {
        environment.set("DBUS_SESSION_BUS_ADDRESS", bus.address());
        platform::CFNotificationCenter::setCurrent(nullptr);
    }

    void open() {
        shell::installTerminationHook(nullptr);
        start();
        tap("Failing");
        static_cast<void>(page().title());
        static_cast<void>(labels());
    }
    void enter(Entry entry);
    void enterList(Entry entry);
    void endTyping(Entry entry);
    void enterSheet(Entry entry);
    void enterTable(Entry entry);
    void enterFromOutside(Entry entry);
    void receiveNotification();
    /// Opens the page, enters it that way, and ends well when it has not failed.
    [[noreturn]] void openAndEnter(Entry entry) {
        open();
        enter(entry);
        std::_Exit(0);
    }

    TestBus bus;
    FailingPage failing{root()};
};

void FailingPageInShell::enter(Entry entry) {
    switch (groupOf(entry)) {
    case EntryGroup::Opening:
        return;
    case EntryGroup::List:
        return enterList(entry);
    case EntryGroup::Typing:
        type("Name", "Ann");
        return endTyping(entry);
    case EntryGroup::Sheet:
        return enterSheet(entry);
    case EntryGroup::Table:
        tap("Table");
        return enterTable(entry);
    case EntryGroup::Outside:
        return enterFromOutside(entry);
    }
}

void FailingPageInShell::enterList(Entry entry) {
    if (entry == Entry::PageLeaving || entry == Entry::PageGone) {
        static_cast<void>(settings().page().goBack());
    } else if (entry == Entry::SwitchTapped) {
        tap("Switch");
    } else if (entry == Entry::SwitchSet) {
        static_cast<void>(settings().page().setSwitch(pathOf("Switch"), true));
    } else if (entry == Entry::SliderMoved) {
        static_cast<void>(settings().page().moveSlider({0, 1}, 5));
    } else if (entry == Entry::ChoiceMade) {
        tap("Choice");
        tap("Second");
    } else if (entry == Entry::BarButtonTapped) {
        static_cast<void>(settings().page().tapBarButton());
    } else if (entry == Entry::ListDragged) {
        static_cast<void>(settings().page().dragList());
    } else {
        tap("Press");
    }
}

void FailingPageInShell::endTyping(Entry entry) {
    if (entry == Entry::TypingEndedByATap)
        tap("Press");
    else if (entry == Entry::TypingEndedByADrag)
        static_cast<void>(settings().page().dragList());
    else if (entry == Entry::TypingEndedByTheBarButton)
        static_cast<void>(settings().page().tapBarButton());
    else if (entry == Entry::TypingEndedByGoingBack)
        static_cast<void>(settings().page().goBack());
    else if (entry == Entry::TypingEndedByClosing)
        quit();
    else
        settings().page().endEditing();
}

void FailingPageInShell::enterSheet(Entry entry) {
    auto& sheets = settings().sheets();
    if (entry == Entry::AlertTyped || entry == Entry::AlertButtonTapped) {
        tap("Ask");
        static_cast<void>(entry == Entry::AlertTyped ? sheets.typeIntoAlert(0, "why")
                                                     : sheets.chooseAlertAction(0));
    } else if (entry == Entry::MailCancelled || entry == Entry::MailSent) {
        tap("Mail");
        static_cast<void>(entry == Entry::MailSent ? sheets.sendMail() : sheets.cancelMail());
        if (entry == Entry::MailSent)
            settings().run([this] { mail.finish({platform::MailOutcome::Kind::HandedOver, "Sent."}); });
    } else {
        tap("Keypad");
        if (entry == Entry::PasscodeEntered)
            press("1234");
        else if (entry == Entry::PasscodeEnteredOtherwise)
            static_cast<void>(sheets.enterPasscode("1234"));
        else if (entry == Entry::KeypadCancelled)
            static_cast<void>(sheets.cancelKeypad());
        else
            static_cast<void>(sheets.pressEmergency());
    }
}

void FailingPageInShell::enterTable(Entry entry) {
    const auto table = page().table();
    if (entry == Entry::TableCounted)
        table->sectionCount();
    else if (entry == Entry::TableRowsCounted)
        table->rowCount(0);
    else if (entry == Entry::TableRowMeasured)
        table->rowHeight({0, 0});
    else if (entry == Entry::TableCellMade)
        table->show({0, 0});
    else
        static_cast<void>(settings().page().flipTableSwitch({0, 0}));
}

void FailingPageInShell::enterFromOutside(Entry entry) {
    if (entry == Entry::ApplicationResigned) {
        settings().resignActive();
    } else if (entry == Entry::TimeCame) {
        tap("Fade");
        clock.step(1);
    } else if (entry == Entry::OperationRun) {
        tap("Queue");
        settings().process();
    } else {
        receiveNotification();
    }
}

void FailingPageInShell::receiveNotification() {
    EXPECT_EQ(runProcess(programFolder() + "/test-poster", {"test.failing/change"}).exitCode, 0);
    pollfd loop{platform::MainLoop::shared().descriptor(), POLLIN, 0};
    while (!failing.documentHasChanged() && poll(&loop, 1, testTimeoutMilliseconds) > 0)
        settings().process();
}

std::string nameOf(const testing::TestParamInfo<FailingEntry>& info) {
    return info.param.name;
}

class FailingPageEntryInShell : public FailingPageInShell,
                                public testing::WithParamInterface<FailingEntry> {};

TEST_P(FailingPageEntryInShell, LeavesItsReportAndNoChange) {
    failing.failAt(GetParam().point);
    EXPECT_EXIT(openAndEnter(GetParam().entry), testing::KilledBySignal(SIGABRT), "");
    failing.expectReportOf(GetParam().point);
}

INSTANTIATE_TEST_SUITE_P(, FailingPageEntryInShell, testing::ValuesIn(failingEntries), nameOf);

TEST_F(FailingPageInShell, ReportsAnExceptionOfTheStandardLibrary) {
    failing.failAt("press", "message");
    EXPECT_EXIT(openAndEnter(Entry::ButtonTapped), testing::KilledBySignal(SIGABRT), "");
    failing.expectReport("NSGenericException", "failed at press");
}

TEST_F(FailingPageInShell, ReportsAnExceptionWithoutAMessage) {
    failing.failAt("press", "no message");
    EXPECT_EXIT(openAndEnter(Entry::ButtonTapped), testing::KilledBySignal(SIGABRT), "");
    failing.expectReport("NSGenericException", "an exception without a message");
}

TEST_F(FailingPageInShell, ReportsAThrownValueThatIsNotAnException) {
    failing.failAt("press", "number");
    EXPECT_EXIT(openAndEnter(Entry::ButtonTapped), testing::KilledBySignal(SIGABRT), "");
    failing.expectReport("NSGenericException", "an exception of an unknown type");
}

TEST_F(FailingPageInShell, WritesWithoutAFailure) {
    open();
    enter(Entry::NotificationCame);
    EXPECT_TRUE(failing.documentHasChanged());
    EXPECT_FALSE(exists(logPath));
}

} // namespace
} // namespace wardlock::test
