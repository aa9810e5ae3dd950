// Random changes of a user, random undo and redo, against the list of the documents that there were.

#include "tests/support/ParameterNames.h"
#include "tests/unit/shell/UndoFixture.h"

#include <gtest/gtest.h>

#include <random>

namespace wardlock::test {
namespace {

class UndoModel : public UndoFixture, public ::testing::WithParamInterface<unsigned> {
protected:
    /// Fewer changes than versions are kept.
    static constexpr int steps = 150;

    std::size_t below(std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_);
    }
    void goToList() {
        while (settings().screen().pages().size() > 2)
            back();
        if (settings().screen().pages().size() < 2)
            tap("Wardlock");
    }
    void openAnyAccount() {
        goToList();
        const auto all = names();
        // Names may repeat: the row is tapped by its position.
        const auto first = pathOf(all[0]);
        ASSERT_TRUE(settings().page().tapRow({first.section, below(all.size())}));
    }
    void changeSomething() {
        static constexpr std::array switches{"Enabled",    "Siri",  "Hide Icons",     "Camera",
                                             "Power Down", "Video", "Volume Buttons", "Editing"};
        switch (below(8)) {
        case 0:
            goToList();
            return tap("Enabled");
        case 1:
            goToList();
            return createAccount("Child " + std::to_string(below(5)));
        case 2:
            openAnyAccount();
            tap("Delete Account");
            return chooseInAlert("Delete");
        case 3:
            openAnyAccount();
            type("Account Name", "Name " + std::to_string(below(5)));
            return settings().page().endEditing();
        case 4:
            openAnyAccount();
            tap("Apps");
            ASSERT_TRUE(settings().page().flipTableSwitch({0, below(2)}));
            return;
        default:
            openAnyAccount();
            return tap(switches[below(switches.size())]);
        }
    }
    void change() {
        changeSomething();
        const std::string now = readFile(documentPath);
        // A name that is typed again changes nothing.
        if (now == documents_[at_])
            return;
        documents_.resize(++at_);
        documents_.push_back(now);
    }
    void takeBack() {
        const auto result = settings().history().undo();
        EXPECT_EQ(static_cast<bool>(result), at_ > 0) << result.reason();
        if (at_ == 0)
            return;
        --at_;
        ++takenBack_;
    }
    void makeAgain() {
        const bool possible = at_ + 1 < documents_.size();
        const auto result = settings().history().redo();
        EXPECT_EQ(static_cast<bool>(result), possible) << result.reason();
        if (!possible)
            return;
        ++at_;
        ++madeAgain_;
    }
    /// The page on top shows what is stored.
    void checkPage() {
        if (!page().isList())
            return;
        const auto shown = labels();
        std::vector<std::string> values;
        for (std::size_t i = 0; i < page().sectionCount(); ++i)
            for (std::size_t j = 0; j < page().section(i).rowCount; ++j)
                values.push_back(page().row({i, j}).text + (page().row({i, j}).isOn() ? "on" : ""));
        settings().screen().page()->forgetValues();
        std::vector<std::string> stored;
        for (std::size_t i = 0; i < page().sectionCount(); ++i)
            for (std::size_t j = 0; j < page().section(i).rowCount; ++j)
                stored.push_back(page().row({i, j}).text + (page().row({i, j}).isOn() ? "on" : ""));
        EXPECT_EQ(values, stored);
    }

    std::mt19937 random_{GetParam()};
    std::vector<std::string> documents_;
    std::size_t at_ = 0;
    int takenBack_ = 0;
    int madeAgain_ = 0;
};

TEST_P(UndoModel, ReturnsToEveryDocumentThatThereWas) {
    installApplications();
    startWith({"Ann", "Tom"});
    documents_ = {readFile(documentPath)};
    for (int step = 0; step < steps && !HasFailure(); ++step) {
        const std::size_t what = below(10);
        if (what < 5)
            change();
        else if (what < 8)
            takeBack();
        else
            makeAgain();
        EXPECT_EQ(readFile(documentPath), documents_[at_]) << "step " << step;
        EXPECT_EQ(notice(), "") << "step " << step;
        checkPage();
    }
    EXPECT_GT(takenBack_, steps / 10);
    EXPECT_GT(madeAgain_, 0);
}

INSTANTIATE_TEST_SUITE_P(OfSeveralSeeds, UndoModel, ::testing::Range(1U, 9U), seedName);

} // namespace
} // namespace wardlock::test
