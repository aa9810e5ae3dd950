#include "tests/support/FailingPage.h"

#include "tests/support/BuildPaths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace wardlock::test {

namespace {

constexpr const char* document =
    "<plist version=\"1.0\"><dict><key>kEnabled</key><true/><key>kPasscode</key><string></string>"
    "<key>kAccounts</key><array/></dict></plist>\n";

std::string contents(const std::string& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

std::size_t countOf(std::string_view part, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

} // namespace

const std::array<FailingEntry, static_cast<std::size_t>(Entry::NotificationCame) + 1> failingEntries{{
    {Entry::ListBuilt, "WhenItsListIsBuilt", "list"},
    {Entry::RowRead, "WhenARowIsRead", "get switch"},
    {Entry::TitleRead, "WhenItsTitleIsRead", "title"},
    {Entry::PageAppearing, "WhenItIsAboutToAppear", "will appear"},
    {Entry::PageShown, "WhenItHasAppeared", "did appear"},
    {Entry::PageLeaving, "WhenItIsAboutToGo", "will disappear"},
    {Entry::PageGone, "WhenItHasGone", "did disappear"},
    {Entry::RowTapped, "WhenARowIsTapped", "select"},
    {Entry::ButtonTapped, "WhenAButtonIsTapped", "press"},
    {Entry::SwitchTapped, "WhenASwitchIsTapped", "set switch"},
    {Entry::SwitchSet, "WhenASwitchIsSet", "set switch"},
    {Entry::SliderMoved, "WhenASliderIsMoved", "set slider"},
    {Entry::ChoiceMade, "WhenAChoiceIsMade", "set choice"},
    {Entry::BarButtonTapped, "WhenTheBarButtonIsTapped", "add"},
    {Entry::ListDragged, "WhenItsListIsDragged", "drag"},
    {Entry::TypingEndedByReturn, "WhenReturnEndsTyping", "set name"},
    {Entry::TypingEndedByATap, "WhenATapEndsTyping", "set name"},
    {Entry::TypingEndedByADrag, "WhenADragEndsTyping", "set name"},
    {Entry::TypingEndedByTheBarButton, "WhenTheBarButtonEndsTyping", "set name"},
    {Entry::TypingEndedByGoingBack, "WhenGoingBackEndsTyping", "set name"},
    {Entry::TypingEndedByClosing, "WhenClosingEndsTyping", "set name"},
    {Entry::AlertTyped, "WhenItsAlertIsTypedInto", "alert text"},
    {Entry::AlertButtonTapped, "WhenItsAlertsButtonIsTapped", "alert button"},
    {Entry::PasscodeEntered, "WhenAPasscodeIsEntered", "keypad entry"},
    {Entry::PasscodeEnteredOtherwise, "WhenAPasscodeIsEnteredOtherwise", "keypad other entry"},
    {Entry::KeypadCancelled, "WhenItsKeypadIsCancelled", "keypad cancel"},
    {Entry::EmergencyPressed, "WhenTheEmergencyButtonIsTapped", "keypad emergency"},
    {Entry::TableCounted, "WhenItsTablesSectionsAreCounted", "table sections"},
    {Entry::TableRowsCounted, "WhenItsTablesRowsAreCounted", "table rows"},
    {Entry::TableRowMeasured, "WhenItsTablesRowIsMeasured", "table height"},
    {Entry::TableCellMade, "WhenItsTablesCellIsMade", "table cell"},
    {Entry::TableSwitchTapped, "WhenItsTablesSwitchIsTapped", "table switch"},
    {Entry::MailCancelled, "WhenItsMailIsCancelled", "mail cancel"},
    {Entry::MailSent, "WhenItsMailIsSent", "mail sent"},
    {Entry::ApplicationResigned, "WhenTheApplicationResignsActive", "resign"},
    {Entry::TimeCame, "WhenAnAnimationEnds", "clock"},
    {Entry::OperationRun, "WhenItsOperationRuns", "queue"},
    {Entry::NotificationCame, "WhenANotificationComes", "bus"},
}};

EntryGroup groupOf(Entry entry) {
    switch (entry) {
    case Entry::ListBuilt:
    case Entry::RowRead:
    case Entry::TitleRead:
    case Entry::PageAppearing:
    case Entry::PageShown:
        return EntryGroup::Opening;
    case Entry::PageLeaving:
    case Entry::PageGone:
    case Entry::RowTapped:
    case Entry::ButtonTapped:
    case Entry::SwitchTapped:
    case Entry::SwitchSet:
    case Entry::SliderMoved:
    case Entry::ChoiceMade:
    case Entry::BarButtonTapped:
    case Entry::ListDragged:
        return EntryGroup::List;
    case Entry::TypingEndedByReturn:
    case Entry::TypingEndedByATap:
    case Entry::TypingEndedByADrag:
    case Entry::TypingEndedByTheBarButton:
    case Entry::TypingEndedByGoingBack:
    case Entry::TypingEndedByClosing:
        return EntryGroup::Typing;
    case Entry::AlertTyped:
    case Entry::AlertButtonTapped:
    case Entry::PasscodeEntered:
    case Entry::PasscodeEnteredOtherwise:
    case Entry::KeypadCancelled:
    case Entry::EmergencyPressed:
    case Entry::MailCancelled:
    case Entry::MailSent:
        return EntryGroup::Sheet;
    case Entry::TableCounted:
    case Entry::TableRowsCounted:
    case Entry::TableRowMeasured:
    case Entry::TableCellMade:
    case Entry::TableSwitchTapped:
        return EntryGroup::Table;
    case Entry::ApplicationResigned:
    case Entry::TimeCame:
    case Entry::OperationRun:
    case Entry::NotificationCame:
        return EntryGroup::Outside;
    }
    throw std::logic_error("an entry without a group");
}

FailingPage::FailingPage(std::string root)
    : document_(root + "/var/mobile/Library/Preferences/com.tavix.wardlock.plist"),
      log_(root + "/var/mobile/com.tavix.wardlock_log"),
      plan_(root + "/var/mobile/Library/Preferences/test.failing.plist") {
    const fs::path bundles = root + "/Library/PreferenceBundles";
    fs::create_directories(bundles);
    fs::create_directory_symlink(fs::path(testModulesFolder()) / "Failing.bundle",
                                 bundles / "Failing.bundle");
    std::ofstream(document_) << document;
}

void FailingPage::failAt(std::string_view point, std::string_view kind) const {
    std::ofstream(plan_) << "<plist version=\"1.0\"><dict><key>at</key><string>" << point
                         << "</string><key>as</key><string>" << kind << "</string></dict></plist>\n";
}

void FailingPage::expectReport(std::string_view name, std::string_view reason) const {
    const std::string separator = "\n\n" + std::string(63, '-') + "\n\n";
    const std::string log = contents(log_);
    const std::string beginning = "\n" + separator + "Exception Caught\n\nName: " + std::string(name) +
                                  "\nReason: " + std::string(reason) + "\nInfo: (null)\nReturn Address: (\n";
    EXPECT_EQ(countOf("Exception Caught", log), 1U) << log;
    const std::size_t report = log.find(beginning);
    ASSERT_NE(report, std::string::npos) << log;
    EXPECT_NE(log.find("\n)\nCall Stack: (\n", report), std::string::npos) << log;
    EXPECT_TRUE(log.ends_with("\n)" + separator)) << log;
    EXPECT_FALSE(documentHasChanged()) << contents(document_);
}

void FailingPage::expectReportOf(std::string_view point) const {
    expectReport("NSRangeException", "failed at " + std::string(point));
}

bool FailingPage::documentHasChanged() const {
    return contents(document_) != document;
}

} // namespace wardlock::test
