#pragma once

#include <array>
#include <ostream>
#include <string>
#include <string_view>

namespace wardlock::test {

/// A way into the pages.
enum class Entry {
    ListBuilt,
    RowRead,
    TitleRead,
    PageAppearing,
    PageShown,
    PageLeaving,
    PageGone,
    RowTapped,
    ButtonTapped,
    SwitchTapped,
    SwitchSet,
    SliderMoved,
    ChoiceMade,
    BarButtonTapped,
    ListDragged,
    TypingEndedByReturn,
    TypingEndedByATap,
    TypingEndedByADrag,
    TypingEndedByTheBarButton,
    TypingEndedByGoingBack,
    TypingEndedByClosing,
    AlertTyped,
    AlertButtonTapped,
    PasscodeEntered,
    PasscodeEnteredOtherwise,
    KeypadCancelled,
    EmergencyPressed,
    TableCounted,
    TableRowsCounted,
    TableRowMeasured,
    TableCellMade,
    TableSwitchTapped,
    MailCancelled,
    MailSent,
    ApplicationResigned,
    TimeCame,
    OperationRun,
    NotificationCame,
};

/// What a front end opens on the page before it enters it.
enum class EntryGroup {
    /// Opening the page is the entry itself.
    Opening,
    List,
    Typing,
    Sheet,
    Table,
    /// What comes without a user: time, the bus, another program in front.
    Outside,
};

EntryGroup groupOf(Entry entry);

struct FailingEntry {
    Entry entry;
    const char* name;
    /// Where the page fails (tests/support/modules/failing-bundle/Failure.h).
    const char* point;

    friend std::ostream& operator<<(std::ostream& out, const FailingEntry& entry) {
        return out << entry.name;
    }
};

/// Every way in, each once.
extern const std::array<FailingEntry, static_cast<std::size_t>(Entry::NotificationCame) + 1> failingEntries;

/// The bundle that fails where a test says, in a device root with a document, and what it leaves.
class FailingPage {
public:
    /// Puts both into the device root.
    explicit FailingPage(std::string root);

    /// The page fails there, with an exception of that kind; empty for the platform's.
    void failAt(std::string_view point, std::string_view kind = {}) const;
    /// Expects one report in the log, a whole one of such an exception, and the document as it was.
    void expectReport(std::string_view name, std::string_view reason) const;
    /// The same of what the page throws there by default.
    void expectReportOf(std::string_view point) const;
    bool documentHasChanged() const;

private:
    std::string document_;
    std::string log_;
    std::string plan_;
};

} // namespace wardlock::test
