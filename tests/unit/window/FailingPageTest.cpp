#include "tests/support/FailingPage.h"

#include "platform/runtime/NSOperationQueue.h"
#include "shell/TerminationHook.h"
#include "tests/unit/window/WindowFixture.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

namespace wardlock::test {
namespace {

/// What a failing page leaves in the window.
class FailingPageInWindow : public WindowFixture {
protected:
    [[noreturn]] void openAndEnter(Entry entry) {
        shell::installTerminationHook(nullptr);
        open();
        scene().tap("row:Failing");
        scene().item("row:Press");
        enter(entry);
        std::_Exit(0);
    }
    void enter(Entry entry);
    void enterList(Entry entry);
    void endTyping(Entry entry);
    void enterSheet(Entry entry);
    void enterFromOutside(Entry entry);
    void dragList() {
        const QPointF middle = scene().middleOf("row:Press");
        scene().touchDrag(middle, middle - QPointF(0, 200));
    }

    FailingPage failing{root()};
};

void FailingPageInWindow::enter(Entry entry) {
    switch (groupOf(entry)) {
    case EntryGroup::Opening:
        return;
    case EntryGroup::List:
        return enterList(entry);
    case EntryGroup::Typing:
        scene().tap("field:Name");
        scene().type("Ann");
        return endTyping(entry);
    case EntryGroup::Sheet:
        return enterSheet(entry);
    case EntryGroup::Table:
        scene().reveal("row:Table");
        scene().tap("row:Table");
        return scene().tap("switch:row.1");
    case EntryGroup::Outside:
        return enterFromOutside(entry);
    }
}

void FailingPageInWindow::enterList(Entry entry) {
    if (entry == Entry::PageLeaving || entry == Entry::PageGone) {
        scene().tap("back");
    } else if (entry == Entry::SwitchTapped || entry == Entry::SwitchSet) {
        scene().tap("switch:Switch");
    } else if (entry == Entry::SliderMoved) {
        scene().item("slider:")->forceActiveFocus();
        scene().press(Qt::Key_Right);
    } else if (entry == Entry::ChoiceMade) {
        scene().tap("row:Choice");
        scene().tap("row:Second");
    } else if (entry == Entry::BarButtonTapped) {
        scene().tap("add");
    } else if (entry == Entry::ListDragged) {
        dragList();
    } else {
        scene().tap("row:Press");
    }
}

void FailingPageInWindow::endTyping(Entry entry) {
    if (entry == Entry::TypingEndedByATap)
        scene().tap("row:Press");
    else if (entry == Entry::TypingEndedByADrag)
        dragList();
    else if (entry == Entry::TypingEndedByTheBarButton)
        scene().tap("add");
    else if (entry == Entry::TypingEndedByGoingBack)
        scene().tap("back");
    else if (entry == Entry::TypingEndedByClosing)
        quit();
    else
        scene().press(Qt::Key_Return);
}

void FailingPageInWindow::enterSheet(Entry entry) {
    if (entry == Entry::AlertTyped || entry == Entry::AlertButtonTapped) {
        scene().tap("row:Ask");
        scene().item("alert:field");
        if (entry == Entry::AlertTyped)
            scene().type("why");
        else
            scene().tap("alert:Yes");
    } else if (entry == Entry::MailCancelled || entry == Entry::MailSent) {
        scene().tap("row:Mail");
        until([this] { return scene().item("composer")->y() == 24; });
        scene().tap(entry == Entry::MailSent ? "mail:send" : "mail:cancel");
        // As the routes of a mail do it.
        platform::NSOperationQueue::mainQueue().addOperation([this] {
            mail.finish({platform::MailOutcome::Kind::HandedOver, "Sent."});
        });
        scene().settle();
    } else {
        scene().tap("row:Keypad");
        scene().item("keypad:status");
        if (entry == Entry::PasscodeEntered)
            scene().type("1234");
        else
            scene().tap(entry == Entry::KeypadCancelled ? "keypad:cancel" : "keypad:emergency");
    }
}

void FailingPageInWindow::enterFromOutside(Entry entry) {
    if (entry == Entry::ApplicationResigned) {
        emit qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    } else if (entry == Entry::TimeCame) {
        scene().tap("row:Fade");
        clock.step(1);
    } else if (entry == Entry::OperationRun) {
        scene().tap("row:Queue");
        scene().settle();
    } else {
        post({"test.failing/change"});
        until([this] { return failing.documentHasChanged(); });
    }
}

/// A user has one way to flip a switch, and the keypad of the window recognises nothing but digits.
std::vector<FailingEntry> entriesOfTheWindow() {
    std::vector<FailingEntry> entries(failingEntries.begin(), failingEntries.end());
    std::erase_if(entries, [](const auto& entry) {
        return entry.entry == Entry::SwitchSet || entry.entry == Entry::PasscodeEnteredOtherwise;
    });
    return entries;
}

class FailingPageEntryInWindow : public FailingPageInWindow,
                                 public testing::WithParamInterface<FailingEntry> {};

TEST_P(FailingPageEntryInWindow, LeavesItsReportAndNoChange) {
    failing.failAt(GetParam().point);
    EXPECT_EXIT(openAndEnter(GetParam().entry), testing::KilledBySignal(SIGABRT), "");
    failing.expectReportOf(GetParam().point);
}

INSTANTIATE_TEST_SUITE_P(, FailingPageEntryInWindow, testing::ValuesIn(entriesOfTheWindow()),
                         [](const auto& info) { return info.param.name; });

} // namespace
} // namespace wardlock::test
