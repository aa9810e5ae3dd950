#include "tests/support/FailingPage.h"
#include "tests/support/TerminalProcess.h"
#include "tests/unit/cli/LineModeFixture.h"

#include <optional>

namespace wardlock::test {
namespace {

/// What the user waits for and then types.
struct Turn {
    std::string awaited;
    std::string typed;
};
using Turns = std::vector<Turn>;

Turn row(int number) {
    return {question, std::to_string(number) + '\n'};
}

/// What the user does on the page once it is open, whose rows are numbered; none where a terminal has no such
/// way in.
std::optional<Turns> turnsTo(Entry entry) {
    const Turn ask = row(6);
    const Turn keypad = row(7);
    const Turn mail = row(8);
    const Turn table = row(11);
    const char* const digits = "Four digits (Enter cancels): ";
    const char* const mailQuestion = "s to send, c to cancel: ";
    switch (entry) {
    case Entry::ListBuilt:
    case Entry::RowRead:
    case Entry::TitleRead:
    case Entry::PageAppearing:
    case Entry::PageShown:
        return Turns{};
    case Entry::PageLeaving:
    case Entry::PageGone:
        return Turns{{question, "b\n"}};
    case Entry::SwitchTapped:
        return Turns{row(1)};
    case Entry::SliderMoved:
        return Turns{row(2), {"to 10: ", "5\n"}};
    case Entry::TypingEndedByReturn:
        return Turns{row(3), {"clears it): ", "Ann\n"}};
    case Entry::ChoiceMade:
        return Turns{row(4), row(2)};
    case Entry::RowTapped:
    case Entry::ButtonTapped:
        return Turns{row(5)};
    case Entry::BarButtonTapped:
        return Turns{{question, "+\n"}};
    case Entry::AlertTyped:
        return Turns{ask, {"Number: ", "1\n"}, {"Reason: ", "why\n"}};
    case Entry::AlertButtonTapped:
        return Turns{ask, {"Number: ", "2\n"}};
    case Entry::PasscodeEntered:
        return Turns{keypad, {digits, "1234\n"}};
    case Entry::KeypadCancelled:
        return Turns{keypad, {digits, "\n"}};
    case Entry::TableCounted:
    case Entry::TableRowsCounted:
    case Entry::TableCellMade:
        return Turns{table};
    case Entry::TableSwitchTapped:
        return Turns{table, row(1)};
    case Entry::MailCancelled:
        return Turns{mail, {mailQuestion, "c\n"}};
    case Entry::MailSent:
        return Turns{mail, {mailQuestion, "s\n"}};
    case Entry::ApplicationResigned:
        return Turns{{question, "z\n"}};
    case Entry::TimeCame:
        return Turns{row(9)};
    case Entry::OperationRun:
        return Turns{row(10)};
    case Entry::NotificationCame:
        // Another process posts it while the question is shown.
        return Turns{{question, ""}};
    case Entry::SwitchSet:
    case Entry::ListDragged:
    case Entry::TypingEndedByATap:
    case Entry::TypingEndedByADrag:
    case Entry::TypingEndedByTheBarButton:
    case Entry::TypingEndedByGoingBack:
    case Entry::TypingEndedByClosing:
    case Entry::PasscodeEnteredOtherwise:
    case Entry::EmergencyPressed:
    case Entry::TableRowMeasured:
        return std::nullopt;
    }
    return std::nullopt;
}

std::vector<FailingEntry> entriesOfTerminals() {
    std::vector<FailingEntry> entries(failingEntries.begin(), failingEntries.end());
    std::erase_if(entries, [](const auto& entry) { return !turnsTo(entry.entry); });
    return entries;
}

class FailingPageEntryInTerminal : public LineModeFixture, public testing::WithParamInterface<FailingEntry> {
protected:
    FailingPageEntryInTerminal() { makeFolder("/var/mobile/Library/Mail/Outbox"); }

    FailingPage failing{root()};
};

TEST_P(FailingPageEntryInTerminal, LeavesItsReportAndNoChange) {
    failing.failAt(GetParam().point);
    TerminalProcess terminal(command, words());
    Turns turns = *turnsTo(GetParam().entry);
    // The first page has no way back, and lists this bundle before the other.
    turns.insert(turns.begin(), {question, "1\n"});
    for (const Turn& turn : turns) {
        terminal.waitFor(turn.awaited);
        terminal.type(turn.typed);
    }
    if (GetParam().entry == Entry::NotificationCame)
        post({"test.failing/change"});
    EXPECT_EQ(terminal.wait(), -1);
    failing.expectReportOf(GetParam().point);
}

INSTANTIATE_TEST_SUITE_P(, FailingPageEntryInTerminal, testing::ValuesIn(entriesOfTerminals()),
                         [](const auto& info) { return info.param.name; });

} // namespace
} // namespace wardlock::test
