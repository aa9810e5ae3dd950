#include "info/DeveloperView.h"

#include "info/DeveloperController.h"
#include "tests/support/PageFixture.h"
#include "tests/support/ViewListPage.h"

namespace wardlock::test {
namespace {

constexpr platform::CGRect frame{{10, 20}, {300, 400}};

/// An engine that only writes down what it is asked for.
class RecordingEngine : public platform::WebEngine {
public:
    RecordingEngine() { setCurrent(this); }
    ~RecordingEngine() override { setCurrent(nullptr); }
    void load(const std::shared_ptr<platform::UIWebView>& view,
              const platform::NSURLRequest& request) override {
        urls.push_back(request.url);
        EXPECT_EQ(view->url(), request.url);
        subviewsThen = view->superview() != nullptr;
        if (startsAtOnce)
            view->didStartLoad();
    }

    std::vector<std::string> urls;
    bool subviewsThen = false;
    bool startsAtOnce = false;
};

class DeveloperPage : public PageFixture {
protected:
    static std::shared_ptr<platform::UIWebView> webViewOf(const platform::UIView& view) {
        return std::dynamic_pointer_cast<platform::UIWebView>(view.subviews().at(0));
    }

    RecordingEngine engine;
    std::shared_ptr<DeveloperController> page = std::make_shared<DeveloperController>();
};

TEST_F(DeveloperPage, IsCreatedByNameAndTitledOtherTweaks) {
    EXPECT_EQ(DeveloperController::theClass().name(), "DeveloperController");
    EXPECT_NE(std::dynamic_pointer_cast<DeveloperController>(DeveloperController::theClass().create()),
              nullptr);
    expectTitle(*page, "Other Tweaks");
}

TEST_F(DeveloperPage, CentersALargeBlackSpinnerOverTheWebView) {
    const auto view = DeveloperView::initWithFrame(frame);
    ASSERT_EQ(view->subviews().size(), 2u);
    const auto webView = webViewOf(*view);
    ASSERT_NE(webView, nullptr);
    EXPECT_EQ(webView->frame(), frame) << "the very rectangle, unchanged";
    const auto& activity = view->activity();
    EXPECT_EQ(view->subviews()[1], activity);
    EXPECT_EQ(activity->style(), platform::UIActivityIndicatorViewStyle::WhiteLarge);
    EXPECT_EQ(activity->color(), platform::UIColor::Black);
    EXPECT_EQ(activity->center(), webView->center());
    EXPECT_FALSE(activity->isAnimating());
}

TEST_F(DeveloperPage, AsksForTheListingBeforeTheWebViewIsShown) {
    DeveloperView::initWithFrame(frame);
    EXPECT_EQ(engine.urls, (std::vector<std::string>{"http://" WARDLOCK_REPOSITORY_HOST
                                                     "/packagesfordev.php?name=kitbay"}));
    EXPECT_FALSE(engine.subviewsThen);
}

TEST_F(DeveloperPage, SpinsFromEachStartToItsFinishOrFailure) {
    const auto view = DeveloperView::initWithFrame(frame);
    const auto webView = webViewOf(*view);
    webView->didStartLoad();
    EXPECT_TRUE(view->activity()->isAnimating());
    webView->didFinishLoad("Packages");
    EXPECT_FALSE(view->activity()->isAnimating());
    webView->didStartLoad();
    EXPECT_TRUE(view->activity()->isAnimating()) << "a link that was followed";
    webView->didFailLoad("no network");
    EXPECT_FALSE(view->activity()->isAnimating());
}

TEST_F(DeveloperPage, SpinsForAnEngineThatStartsAtOnce) {
    engine.startsAtOnce = true;
    EXPECT_TRUE(DeveloperView::initWithFrame(frame)->activity()->isAnimating());
}

TEST_F(DeveloperPage, ShowsNoMessageForAFailureAndKeepsTheLoadedText) {
    page->viewWillAppear(false);
    const auto webView = webViewOf(*page->view());
    webView->didFinishLoad("Packages");
    webView->didStartLoad();
    webView->didFailLoad("no network");
    EXPECT_EQ(webView->text(), "Packages");
    EXPECT_EQ(page->view()->subviews().size(), 2u);
    EXPECT_EQ(page->presentedViewController(), nullptr);
    EXPECT_TRUE(window->subviews().empty());
}

TEST_F(DeveloperPage, CreatesAnAlertAtEachFailureAndReleasesItUnshown) {
    class Witness : public DeveloperView {
    public:
        using DeveloperView::DeveloperView;
        std::shared_ptr<platform::UIAlertView> failureAlert() const override {
            auto alert = DeveloperView::failureAlert();
            alerts.push_back(alert);
            spinning.push_back(activity()->isAnimating());
            return alert;
        }
        mutable std::vector<std::weak_ptr<platform::UIAlertView>> alerts;
        mutable std::vector<bool> spinning;
    };
    const auto view = std::make_shared<Witness>(frame);
    view->setupTextViewWithFrame(frame);
    const auto webView = webViewOf(*view);
    webView->didStartLoad();
    webView->didFinishLoad("Packages");
    EXPECT_TRUE(view->alerts.empty());
    for (const std::size_t failures : {1u, 2u}) {
        webView->didStartLoad();
        webView->didFailLoad("no network");
        ASSERT_EQ(view->alerts.size(), failures);
        EXPECT_TRUE(view->alerts.back().expired());
        EXPECT_FALSE(view->spinning.back()) << "the spinner stops first";
    }
}

TEST_F(DeveloperPage, KeepsTheTextsOfItsUnshownAlert) {
    const auto alert = DeveloperView::initWithFrame(frame)->failureAlert();
    EXPECT_EQ(alert->title(), "Load Failed");
    EXPECT_EQ(alert->message(), "There was an error loading Tavix apps from Cydia. Please make sure you are "
                                "connected to the internet.");
    EXPECT_EQ(alert->cancelButtonTitle(), "Dismiss");
    EXPECT_TRUE(alert->otherButtonTitles().empty());
}

TEST_F(DeveloperPage, SetsItsTitleBeforeItsNewViewAndAfterItsListIsReady) {
    EXPECT_EQ(picturesOfAppearing(*page),
              (std::vector<std::string>{"Other Tweaks, list ready, view of before",
                                        "Other Tweaks, list ready, new view"}));
}

TEST_F(DeveloperPage, LoadsTheListingAgainEachTimeItAppears) {
    page->setView(std::make_shared<platform::UIView>(frame));
    page->viewWillAppear(false);
    const std::weak_ptr<platform::UIView> first = page->view();
    EXPECT_EQ(page->view()->frame(), frame);
    page->viewWillAppear(true);
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(engine.urls.size(), 2u);
    EXPECT_EQ(engine.urls[0], engine.urls[1]);
    EXPECT_TRUE(page->hasSpecifiers()) << "as every list page that is about to appear";
}

TEST_F(DeveloperPage, DoesNothingOnceItsViewIsGone) {
    auto view = DeveloperView::initWithFrame(frame);
    const auto webView = webViewOf(*view);
    const auto activity = view->activity();
    view = nullptr;
    webView->didStartLoad();
    EXPECT_FALSE(activity->isAnimating());
}

} // namespace
} // namespace wardlock::test
