#include "info/ChangeLog.h"

#include "info/ChangeLogController.h"
#include "platform/runtime/NSBundle.h"
#include "platform/ui/UITextView.h"
#include "tests/support/PageFixture.h"
#include "tests/support/ViewListPage.h"
#include "tests/support/doubles/MemoryFileSystem.h"
#include "tests/support/doubles/RecordingDisplay.h"

namespace wardlock::test {
namespace {

constexpr platform::CGRect frame{{3, 4}, {300, 400}};

/// In the tests the pages lie in the test program itself, so its folder is the bundle. Its files are
/// in memory: on the disk all tests running at the time would share it.
class ChangeLogPage : public PageFixture {
protected:
    ChangeLogPage() { platform::FileSystem::setCurrent(&files); }

    void writeResource(std::string_view text) {
        const auto bundle = platform::NSBundle::bundleForClass(typeid(ChangeLog));
        files.addFile(std::string(bundle->bundlePath()) + "/changelog.txt", text);
    }
    static std::shared_ptr<platform::UITextView> textViewOf(const platform::UIView& view) {
        return view.subviews().size() == 1
                   ? std::dynamic_pointer_cast<platform::UITextView>(view.subviews()[0])
                   : nullptr;
    }
    std::string text() {
        const auto textView = textViewOf(*ChangeLog::initWithFrame(frame));
        return textView ? textView->text() : "no text view";
    }

    MemoryFileSystem files;
    std::shared_ptr<ChangeLogController> page = std::make_shared<ChangeLogController>();
};

TEST_F(ChangeLogPage, IsCreatedByNameAndTitledChangeLog) {
    EXPECT_EQ(ChangeLogController::theClass().name(), "ChangeLogController");
    EXPECT_NE(std::dynamic_pointer_cast<ChangeLogController>(ChangeLogController::theClass().create()),
              nullptr);
    expectTitle(*page, "Change Log");
}

TEST_F(ChangeLogPage, ShowsTheTextReadOnlyInASystemFontOfFifteenPoints) {
    writeResource("0.1.0\n\n- Größe\n");
    const auto view = ChangeLog::initWithFrame(frame);
    EXPECT_EQ(view->frame(), frame);
    const auto textView = textViewOf(*view);
    ASSERT_NE(textView, nullptr);
    EXPECT_EQ(textView->text(), "0.1.0\n\n- Größe\n");
    EXPECT_EQ(textView->frame(), frame) << "the very rectangle, unchanged";
    EXPECT_FALSE(textView->isEditable());
    EXPECT_FALSE(textView->isSelectable());
    EXPECT_EQ(textView->font().size, 15.0);
}

TEST_F(ChangeLogPage, AddsItsTextViewOnceItIsComplete) {
    class Witness : public doubles::RecordingDisplay {
    public:
        void viewChanged(platform::UIView& view) override {
            if (const auto text = dynamic_cast<ChangeLog*>(&view) ? textViewOf(view) : nullptr)
                pictures.push_back(text->text() + (text->isEditable() ? " editable" : "") +
                                   (text->isSelectable() ? " selectable" : ""));
        }
        std::vector<std::string> pictures;
    };
    writeResource("0.1.0");
    Witness witness;
    ChangeLog::initWithFrame(frame);
    EXPECT_EQ(witness.pictures, std::vector<std::string>{"0.1.0"});
}

TEST_F(ChangeLogPage, IsEmptyWhenTheResourceIsMissing) {
    EXPECT_EQ(text(), "");
}

TEST_F(ChangeLogPage, IsEmptyWhenTheResourceIsNotUtf8) {
    writeResource("0.1.0 Gr\xf6\xdf"
                  "e");
    EXPECT_EQ(text(), "");
}

TEST_F(ChangeLogPage, ReadsTheResourceAgainEachTimeItAppears) {
    page->setView(std::make_shared<platform::UIView>(frame));
    writeResource("old");
    page->viewWillAppear(false);
    const auto first = page->view();
    writeResource("new");
    page->viewWillAppear(true);
    EXPECT_NE(page->view(), first);
    EXPECT_EQ(page->view()->frame(), frame);
    EXPECT_EQ(textViewOf(*page->view())->text(), "new");
    EXPECT_FALSE(page->showsList());
    EXPECT_TRUE(page->hasSpecifiers()) << "as every list page that is about to appear";
}

TEST_F(ChangeLogPage, SetsItsTitleBeforeItsNewViewAndAfterItsListIsReady) {
    EXPECT_EQ(picturesOfAppearing(*page), (std::vector<std::string>{"Change Log, list ready, view of before",
                                                                    "Change Log, list ready, new view"}));
}

TEST_F(ChangeLogPage, ShowsALongText) {
    writeResource(std::string(1u << 20, 'x'));
    EXPECT_EQ(text().size(), 1u << 20);
}

} // namespace
} // namespace wardlock::test
