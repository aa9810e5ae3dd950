#include "tests/support/SettingsApplicationFixture.h"

namespace {

/// The page whose table has ten thousand rows.
class PageTable : public wardlock::test::SettingsApplicationFixture {
protected:
    PageTable() {
        installFixtureBundle();
        start();
        tap("Fixture");
        tap("Table");
    }
};

} // namespace

TEST_F(PageTable, ReplacesAList) {
    EXPECT_FALSE(page().isList());
    ASSERT_EQ(page().content().size(), 1U);
    ASSERT_TRUE(page().table());
    EXPECT_EQ(page().table()->sectionCount(), 1U);
    EXPECT_EQ(page().table()->rowCount(0), 10'000U);
    EXPECT_EQ(page().table()->rowHeight({0, 5000}), 35);
}

TEST_F(PageTable, BuildsNoCellsForUnshownRows) {
    const auto table = page().table();
    long made = 0;
    // A window of ten rows slides over the whole table.
    std::vector<std::shared_ptr<wardlock::shell::TableRow>> shown;
    for (std::size_t row = 0; row < 10'000; ++row) {
        if (shown.size() == 10)
            shown.erase(shown.begin());
        shown.push_back(table->show({0, row}));
        ASSERT_TRUE(shown.back());
        EXPECT_EQ(shown.back()->title(), "Row " + std::to_string(row));
    }
    shown.clear();
    const auto cell = table->view()->takeCell({0, 0});
    made = cell->tag();
    EXPECT_LE(made, 10);
}

TEST_F(PageTable, SharesARowThatIsShownTwice) {
    const auto table = page().table();
    const auto row = table->show({0, 7});
    EXPECT_EQ(table->show({0, 7}), row);
    EXPECT_EQ(row->key(), "row.7");
    EXPECT_EQ(row->detail(), "") << "its label is hidden";
}

TEST_F(PageTable, HasNoRowBeyondItsEnd) {
    EXPECT_FALSE(page().table()->show({0, 10'000}));
    EXPECT_FALSE(page().table()->show({1, 0}));
    EXPECT_EQ(settings().page().flipTableSwitch({0, 10'000}).reason(), "there is no such row");
}

TEST_F(PageTable, FlipsTheSwitchOfARowThatIsShown) {
    const auto row = page().table()->show({0, 3});
    EXPECT_TRUE(settings().page().flipTableSwitch({0, 3}));
    EXPECT_TRUE(row->isOn());
    EXPECT_TRUE(settings().page().flipTableSwitch({0, 3}));
    EXPECT_FALSE(row->isOn());
}

TEST_F(PageTable, SetsTheSwitchOfARow) {
    const auto row = page().table()->show({0, 3});
    for (const bool on : {true, true, false, false}) {
        EXPECT_TRUE(settings().page().setTableSwitch({0, 3}, on));
        EXPECT_EQ(row->isOn(), on);
    }
    EXPECT_EQ(settings().page().setTableSwitch({0, 10'000}, true).reason(), "there is no such row");
}

TEST_F(PageTable, SetsNoSwitchWhileThePageMovesEvenToItsOwnState) {
    EXPECT_TRUE(settings().page().goBack());
    settings().setTransitionSeconds(0.35);
    tap("Table");
    EXPECT_EQ(settings().page().setTableSwitch({0, 3}, false).reason(), "the page is still moving");
    EXPECT_EQ(settings().page().setTableSwitch({0, 3}, true).reason(), "the page is still moving");
    clock.step(0.35);
    EXPECT_TRUE(settings().page().setTableSwitch({0, 3}, false));
}

TEST_F(PageTable, FlipsTheSwitchOfARowThatIsNotShown) {
    EXPECT_TRUE(settings().page().flipTableSwitch({0, 9'000}));
    EXPECT_TRUE(page().table()->show({0, 9'000})->isOn());
    EXPECT_FALSE(page().table()->show({0, 9'001})->isOn());
}
