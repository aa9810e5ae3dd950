#include "tests/support/SettingsApplicationFixture.h"

#include <algorithm>

using platform::NSIndexPath;
using wardlock::shell::Page;

namespace {

/// Records the notifications of a front end.
class Recorder : public wardlock::shell::ScreenObserver {
public:
    void pagesChanged(bool animated) override { add(animated ? "pages animated" : "pages"); }
    void transitionEnded() override { add("transition ended"); }
    void pageChanged(Page&) override { add("page"); }
    void listReset(Page&) override { add("list"); }
    void rowChanged(Page&, NSIndexPath path) override { add("row " + text(path)); }
    void rowInserted(Page&, NSIndexPath path, bool animated) override {
        add("inserted " + text(path) + (animated ? " animated" : ""));
    }
    void contentChanged(Page&) override { add("content"); }
    void tableRowChanged(Page&, NSIndexPath path) override { add("table row " + text(path)); }
    void overlayChanged() override { add("overlay"); }
    void presentationChanged() override { add("presentation"); }
    void editingChanged() override { add("editing"); }
    void noticeChanged() override { add("notice"); }

    std::vector<std::string> take() { return std::exchange(reported_, {}); }

private:
    void add(std::string what) { reported_.push_back(std::move(what)); }
    static std::string text(NSIndexPath path) {
        return std::to_string(path.section) + '/' + std::to_string(path.row);
    }

    std::vector<std::string> reported_;
};

bool has(const std::vector<std::string>& reported, std::string_view what) {
    return std::find(reported.begin(), reported.end(), what) != reported.end();
}

class ScreenChanges : public wardlock::test::SettingsApplicationFixture {
protected:
    void open(double transitionSeconds = 0) {
        installFixtureBundle();
        start(transitionSeconds);
        tap("Fixture");
        clock.step(transitionSeconds);
        observing_ = settings().observe(reported);
    }

    Recorder reported;
    platform::Subscription observing_;
};

} // namespace

TEST_F(ScreenChanges, ReportAPushWithoutATransition) {
    open();
    tap("Table");
    const auto reported = this->reported.take();
    EXPECT_TRUE(has(reported, "pages"));
    EXPECT_FALSE(has(reported, "transition ended"));
}

TEST_F(ScreenChanges, ReportAPushAndItsEnd) {
    open(0.35);
    tap("Table");
    EXPECT_TRUE(has(reported.take(), "pages animated"));
    EXPECT_TRUE(settings().screen().isInTransition());
    clock.step(0.35);
    EXPECT_TRUE(has(reported.take(), "transition ended"));
    EXPECT_FALSE(settings().screen().isInTransition());
}

TEST_F(ScreenChanges, NameTheRowWhoseControlMoved) {
    open();
    tap("On");
    EXPECT_EQ(reported.take(), std::vector<std::string>{"row 0/0"});
}

TEST_F(ScreenChanges, ReportTyping) {
    open();
    const auto path = pathOf("Nickname");
    ASSERT_EQ(path, (NSIndexPath{1, 2}));
    tap("Nickname");
    EXPECT_EQ(reported.take(), (std::vector<std::string>{"row 1/2", "editing"}));
    EXPECT_TRUE(settings().page().typeText("T"));
    EXPECT_EQ(reported.take(), std::vector<std::string>{"row 1/2"});
    settings().page().endEditing();
    EXPECT_EQ(reported.take(), (std::vector<std::string>{"editing", "row 1/2"}));
}

TEST_F(ScreenChanges, ReportAnInsertion) {
    open();
    const auto end = page().section(4).rowCount;
    tap("Grow");
    EXPECT_TRUE(has(reported.take(), "inserted 4/" + std::to_string(end) + " animated"));
}

TEST_F(ScreenChanges, ReportThatAnAlertAppearsChangesAndDisappears) {
    open();
    tap("Ask");
    EXPECT_TRUE(has(reported.take(), "presentation"));
    EXPECT_TRUE(settings().sheets().typeIntoAlert(0, "x"));
    EXPECT_TRUE(has(reported.take(), "presentation"));
    chooseInAlert("No");
    EXPECT_TRUE(has(reported.take(), "presentation"));
}

TEST_F(ScreenChanges, NameTheTableRowWhoseSwitchMoved) {
    open();
    tap("Table");
    const auto row = page().table()->show({0, 4});
    reported.take();
    EXPECT_TRUE(settings().page().flipTableSwitch({0, 4}));
    EXPECT_EQ(reported.take(), std::vector<std::string>{"table row 0/4"});
}

TEST_F(ScreenChanges, AreReportedWhenThePagesAreReady) {
    // The front end reads the screen when it is notified: everything has to be in place by then.
    struct Reader : wardlock::shell::ScreenObserver {
        explicit Reader(wardlock::shell::SettingsApplication& settings) : settings(settings) {}
        void pagesChanged(bool) override { title = settings.screen().page()->title(); }
        wardlock::shell::SettingsApplication& settings;
        std::string title;
    };
    open();
    Reader reader(settings());
    const auto observing = settings().observe(reader);
    tap("Table");
    EXPECT_EQ(reader.title, "Table");
}

TEST_F(ScreenChanges, AreReportedOnceForARepeatedChange) {
    start();
    tap("Wardlock");
    tap("Passcode");
    observing_ = settings().observe(reported);
    clock.step(0.4);
    press("1");
    EXPECT_EQ(reported.take(), std::vector<std::string>{"overlay"});
}
