// Settings that are missing, damaged or unreadable: a single change taken back in them would be a document
// without passcode and accounts.

#include "platform/plist/PropertyListBounds.h"
#include "tests/unit/history/HistoryFixture.h"

#include <filesystem>
#include <string>
#include <vector>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

using Outcome = UndoResult::Outcome;

enum class Loss { Missing, Damaged, TooLargeToRead };

/// Settings with history and a passcode, which are then lost.
class UndoWithoutDocument : public HistoryFixture, public testing::WithParamInterface<Loss> {
protected:
    UndoWithoutDocument() {
        writeDocument(documentOf({account("Tom"), account("Ann")}));
        setTopLevel(kPasscode, "1234");
    }
    std::string path() const { return onDisk(documentPath); }
    void lose() {
        removeFile(documentPath);
        if (GetParam() == Loss::Missing)
            return;
        writeFile(documentPath, "no document");
        if (GetParam() == Loss::TooLargeToRead)
            fs::resize_file(path(), platform::largestDocument + 1);
    }
    /// Only the file of the loss is there: nothing was written, and nothing kept beside it.
    void expectLost() const {
        EXPECT_EQ(exists(documentPath), GetParam() != Loss::Missing);
        EXPECT_FALSE(exists(std::string(documentPath) + ".damaged"));
        if (GetParam() == Loss::Damaged) {
            EXPECT_EQ(readFile(documentPath), "no document");
        } else if (GetParam() == Loss::TooLargeToRead) {
            EXPECT_EQ(fs::file_size(path()), platform::largestDocument + 1);
        }
    }
    void expectRefused(const UndoResult& result) {
        EXPECT_EQ(result.outcome, Outcome::NoDocument);
        const std::string reason = GetParam() == Loss::TooLargeToRead
                                       ? "the settings cannot be read: File too large"
                                       : "the settings are missing or damaged";
        EXPECT_EQ(result.reasons, std::vector<std::string>{reason});
        EXPECT_TRUE(announced().empty());
        expectLost();
    }
    void expectNothingTakenBack() {
        const std::string last = readFile(documentPath);
        lose();
        announced();
        for (const LaterChanges later : {LaterChanges::Keep, LaterChanges::Overwrite})
            expectRefused(undo(Whose::Anyones, later));
        expectRefused(undo(Whose::Own));
        EXPECT_EQ(restoreVersion(History().versions().back()).outcome, Outcome::Done);
        EXPECT_EQ(readFile(documentPath), last);
    }
};

TEST_P(UndoWithoutDocument, TakesNoDeletionBack) {
    deleteAccount(1);
    expectNothingTakenBack();
}

TEST_P(UndoWithoutDocument, TakesNoAdditionBack) {
    addAccount("Eve");
    expectNothingTakenBack();
}

TEST_P(UndoWithoutDocument, TakesNoValueBack) {
    setTopLevel(kEnabled, false);
    expectNothingTakenBack();
}

TEST_P(UndoWithoutDocument, TakesNoValueOfAnAccountBack) {
    setAccount(0, kRestrictSiri, true);
    expectNothingTakenBack();
}

TEST_P(UndoWithoutDocument, MakesNoChangeAgain) {
    deleteAccount(1);
    undo(Whose::Anyones);
    lose();
    announced();
    for (const LaterChanges later : {LaterChanges::Keep, LaterChanges::Overwrite})
        expectRefused(redo(Whose::Anyones, later));
}

std::string lossName(const testing::TestParamInfo<Loss>& test) {
    switch (test.param) {
    case Loss::Missing:
        return "Missing";
    case Loss::Damaged:
        return "Damaged";
    case Loss::TooLargeToRead:
        break;
    }
    return "TooLargeToRead";
}

INSTANTIATE_TEST_SUITE_P(Losses, UndoWithoutDocument,
                         testing::Values(Loss::Missing, Loss::Damaged, Loss::TooLargeToRead), lossName);

} // namespace
} // namespace wardlock::test
