#include "platform/values/NSException.h"
#include "tests/support/doubles/RecordingDisplay.h"
#include "tests/unit/apps/PickerFixture.h"

namespace wardlock::test {
namespace {

class AppsListTable : public PickerFixture {
protected:
    AppsListTable() {
        install({{"a", "Alpha"}, {"b", "Bravo"}, {"c", "Charlie"}});
        restrict({"b"});
    }
};

TEST_F(AppsListTable, FillsItsViewInTheGroupedStyle) {
    const auto view = open();
    const auto table = view->tableView();
    EXPECT_EQ(view->frame(), frame);
    EXPECT_EQ(table->frame(), frame);
    EXPECT_EQ(table->style(), platform::UITableViewStyle::Grouped);
    EXPECT_EQ(table->autoresizingMask(), 18u);
    ASSERT_EQ(view->subviews().size(), 1u);
    EXPECT_EQ(view->subviews()[0], table);
}

TEST_F(AppsListTable, IsAddedToItsViewOnceItHasRowsDelegateAndMask) {
    class Witness : public doubles::RecordingDisplay {
    public:
        void viewChanged(platform::UIView& view) override {
            if (!dynamic_cast<AppsListView*>(&view) || view.subviews().empty())
                return;
            auto& table = dynamic_cast<platform::UITableView&>(*view.subviews()[0]);
            rows.push_back(table.numberOfRowsInSection(0));
            heights.push_back(table.heightForRow({0, 0}));
            masks.push_back(table.autoresizingMask());
        }
        std::vector<std::size_t> rows;
        std::vector<double> heights;
        std::vector<unsigned> masks;
    };
    Witness witness;
    open();
    EXPECT_EQ(witness.rows, std::vector<std::size_t>{3});
    EXPECT_EQ(witness.heights, std::vector<double>{35});
    EXPECT_EQ(witness.masks, std::vector<unsigned>{18});
}

TEST_F(AppsListTable, HasOneSectionOfRowsThirtyFivePointsHigh) {
    const auto view = open();
    EXPECT_EQ(view->tableView()->numberOfSections(), 1u);
    EXPECT_EQ(view->tableView()->numberOfRowsInSection(0), 3u);
    EXPECT_EQ(view->tableView()->heightForRow({0, 2}), 35.0);
}

TEST_F(AppsListTable, HasOneEmptySectionWhenThereIsNothingToOffer) {
    install({{"com.apple.webapp", "Web"}});
    restrict({});
    const auto view = open();
    EXPECT_EQ(view->tableView()->numberOfSections(), 1u);
    EXPECT_EQ(view->tableView()->numberOfRowsInSection(0), 0u);
}

TEST_F(AppsListTable, ShowsIconNameHiddenIdentifierAndSwitch) {
    const auto icon = list->setIcon("b");
    const auto view = open();
    const auto shown = cell(*view, 0);
    EXPECT_EQ(shown->style(), platform::UITableViewCellStyle::Value1);
    EXPECT_EQ(shown->reuseIdentifier(), "theCell");
    EXPECT_EQ(shown->selectionStyle(), platform::UITableViewCellSelectionStyle::None);
    EXPECT_EQ(shown->image(), icon);
    EXPECT_EQ(list->iconSizes(), std::vector<int>{29});
    EXPECT_EQ(shown->textLabel().text(), "Bravo");
    EXPECT_EQ(shown->detailTextLabel().text(), "b");
    EXPECT_TRUE(shown->detailTextLabel().isHidden());
    EXPECT_FALSE(shown->textLabel().isHidden());
    EXPECT_EQ(switchOf(*shown).frame(), platform::CGRectZero);
    EXPECT_TRUE(switchOf(*shown).isOn());
    EXPECT_EQ(switchOf(*shown).tag(), 0);
    EXPECT_EQ(switchOf(*cell(*view, 2)).tag(), 2);
}

TEST_F(AppsListTable, LeavesTitleAndImageOfWhatIsNotInstalledEmpty) {
    restrict({"gone"});
    const auto view = open();
    const auto shown = cell(*view, 0);
    EXPECT_EQ(shown->textLabel().text(), "");
    EXPECT_EQ(shown->image(), nullptr);
    EXPECT_EQ(shown->detailTextLabel().text(), "gone");
    EXPECT_TRUE(switchOf(*shown).isOn());
}

TEST_F(AppsListTable, LooksTheLibraryUpAgainForEachCell) {
    list->setIcon("b");
    const auto view = open();
    auto with = cell(*view, 0);
    EXPECT_NE(with->image(), nullptr);
    view->tableView()->giveBack(std::move(with));
    list.reset();
    const auto without = cell(*view, 0);
    EXPECT_EQ(without->image(), nullptr);
    EXPECT_EQ(without->textLabel().text(), "Bravo");
    list.emplace();
    const auto icon = list->setIcon("b");
    EXPECT_EQ(cell(*view, 0)->image(), icon);
}

TEST_F(AppsListTable, SetsEveryPropertyOfAReusedCellAgain) {
    list->setIcon("b");
    const auto view = open();
    auto first = cell(*view, 0);
    auto* const address = first.get();
    view->tableView()->giveBack(std::move(first));
    const auto second = cell(*view, 1);
    ASSERT_EQ(second.get(), address);
    EXPECT_EQ(second->textLabel().text(), "Alpha");
    EXPECT_EQ(second->detailTextLabel().text(), "a");
    EXPECT_TRUE(second->detailTextLabel().isHidden());
    EXPECT_EQ(second->image(), nullptr);
    EXPECT_FALSE(switchOf(*second).isOn());
    EXPECT_EQ(switchOf(*second).tag(), 1);
}

TEST_F(AppsListTable, ClearsTheTitleOfAReusedCellWhereTheApplicationIsGone) {
    restrict({"b", "gone"});
    const auto view = open();
    auto first = cell(*view, 0);
    auto* const address = first.get();
    EXPECT_EQ(first->textLabel().text(), "Bravo");
    view->tableView()->giveBack(std::move(first));
    const auto second = cell(*view, 1);
    ASSERT_EQ(second.get(), address);
    EXPECT_EQ(second->textLabel().text(), "");
    EXPECT_EQ(second->detailTextLabel().text(), "gone");
}

TEST_F(AppsListTable, GivesASwitchOneTargetHoweverOftenItsCellIsReused) {
    const auto view = open();
    for (int i = 0; i < 3; ++i)
        view->tableView()->giveBack(cell(*view, 1));
    tap(*view, 1);
    EXPECT_EQ(changes.posts.size(), 1u);
}

TEST_F(AppsListTable, FindsTheSwitchsApplicationByTheHiddenLabelAlone) {
    const auto view = open();
    const auto shown = cell(*view, 1);
    switchOf(*shown).setTag(2);
    shown->textLabel().setText("Bravo");
    shown->detailTextLabel().setText("elsewhere");
    switchOf(*shown).toggle();
    EXPECT_EQ(restricted(), platform::Array({"b", "elsewhere"}));
}

TEST_F(AppsListTable, IgnoresASwitchOutsideEveryCell) {
    const auto view = open();
    const auto loose = std::make_shared<platform::UISwitch>(platform::CGRectZero);
    loose->setOn(true, false);
    view->switchChanged(*loose);
    EXPECT_EQ(restricted(), platform::Array({"b"}));
    expectNoChange();
}

TEST_F(AppsListTable, KeepsARowInItsPlaceWhileSwitched) {
    const auto view = open();
    const Identifiers before = rows(*view);
    tap(*view, 2);
    tap(*view, 0);
    EXPECT_EQ(rows(*view), before);
    EXPECT_FALSE(isOn(*view, 0));
    EXPECT_TRUE(isOn(*view, 2));
}

TEST_F(AppsListTable, ShowsTheSavedStateWhenARowScrollsBackIntoView) {
    const auto view = open();
    auto shown = cell(*view, 2);
    switchOf(*shown).toggle();
    view->tableView()->giveBack(std::move(shown));
    view->tableView()->giveBack(cell(*view, 0));
    EXPECT_TRUE(isOn(*view, 2));
}

TEST_F(AppsListTable, DoesNothingOnceItsViewIsGone) {
    auto view = open();
    const auto shown = cell(*view, 0);
    const auto table = view->tableView();
    view = nullptr;
    switchOf(*shown).toggle();
    expectNoChange();
    EXPECT_EQ(table->numberOfSections(), 0u);
}

TEST_F(AppsListTable, ThrowsForARowBeyondTheLast) {
    const auto view = open();
    EXPECT_THROW(cell(*view, 3), platform::NSException);
}

} // namespace
} // namespace wardlock::test
