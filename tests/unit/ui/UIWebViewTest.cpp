#include "platform/ui/UIWebView.h"

#include <gtest/gtest.h>

#include <vector>

namespace platform {
namespace {

class RecordingWebEngine : public WebEngine {
public:
    RecordingWebEngine() { setCurrent(this); }
    ~RecordingWebEngine() override { setCurrent(nullptr); }
    void load(const std::shared_ptr<UIWebView>&, const NSURLRequest& request) override {
        loads.push_back(request.url);
    }

    std::vector<std::string> loads;
};

class UIWebViewHistory : public ::testing::Test {
protected:
    void show(const char* url) {
        view->loadRequest({url});
        view->didFinishLoad(url);
    }

    RecordingWebEngine engine;
    std::shared_ptr<UIWebView> view = std::make_shared<UIWebView>(CGRectZero);
};

TEST_F(UIWebViewHistory, HasNoEarlierPageOnTheFirst) {
    EXPECT_FALSE(view->canGoBack());
    view->loadRequest({"one"});
    EXPECT_FALSE(view->canGoBack());
    view->didFinishLoad("one");
    EXPECT_FALSE(view->canGoBack());
    view->goBack();
    EXPECT_EQ(engine.loads, (std::vector<std::string>{"one"}));
}

TEST_F(UIWebViewHistory, ReturnsPageByPage) {
    show("one");
    show("two");
    show("three");
    view->goBack();
    EXPECT_EQ(view->url(), "two");
    view->didFinishLoad("two");
    EXPECT_TRUE(view->canGoBack());
    view->goBack();
    view->didFinishLoad("one");
    EXPECT_FALSE(view->canGoBack());
    EXPECT_EQ(engine.loads, (std::vector<std::string>{"one", "two", "three", "two", "one"}));
}

TEST_F(UIWebViewHistory, CountsAPageThatIsLoadedAgainOnce) {
    show("one");
    view->reload();
    view->didFinishLoad("one");
    EXPECT_FALSE(view->canGoBack());
    EXPECT_EQ(engine.loads, (std::vector<std::string>{"one", "one"}));
}

TEST_F(UIWebViewHistory, ReturnsToThePageThatIsShownFromOneThatFailed) {
    show("one");
    show("two");
    view->loadRequest({"three"});
    view->didFailLoad("gone");
    EXPECT_EQ(view->error(), "gone");
    view->goBack();
    EXPECT_EQ(view->url(), "two");
    EXPECT_EQ(view->error(), "");
    view->didFinishLoad("two");
    view->goBack();
    EXPECT_EQ(view->url(), "one");
}

TEST_F(UIWebViewHistory, TriesTheWayBackAgainAfterItFailed) {
    show("one");
    show("two");
    view->goBack();
    view->didFailLoad("gone");
    view->reload();
    view->didFinishLoad("one");
    EXPECT_FALSE(view->canGoBack());
}

TEST_F(UIWebViewHistory, RequestsAWayBackThatFailedOrIsOpenAgain) {
    show("one");
    show("two");
    show("three");
    view->goBack();
    view->goBack();
    view->didFailLoad("gone");
    EXPECT_TRUE(view->canGoBack());
    view->goBack();
    EXPECT_EQ(engine.loads, (std::vector<std::string>{"one", "two", "three", "two", "two", "two"}));
    view->didFinishLoad("two");
    view->goBack();
    EXPECT_EQ(view->url(), "one");
}

TEST_F(UIWebViewHistory, CountsTheLoadsThatDidNotFail) {
    show("one");
    view->loadRequest({"two"});
    view->didFailLoad("gone");
    EXPECT_EQ(view->finishedLoads(), 1U);
    show("two");
    EXPECT_EQ(view->finishedLoads(), 2U);
}

} // namespace
} // namespace platform
