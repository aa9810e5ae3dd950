#include "tests/support/LocalWeb.h"
#include "tests/support/NoMoreThreads.h"
#include "tests/support/TestTimeout.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <memory>
#include <vector>

namespace wardlock::test {
namespace {

using namespace std::chrono_literals;

/// Records the reports of a web view.
class Reports : public platform::Object, public platform::UIWebViewDelegate {
public:
    void webViewDidStartLoad(platform::UIWebView&) override { all.push_back("start"); }
    void webViewDidFinishLoad(platform::UIWebView&) override { all.push_back("finish"); }
    void webViewDidFailLoadWithError(platform::UIWebView&, const std::string& error) override {
        all.push_back("fail");
        lastError = error;
    }

    std::vector<std::string> all;
    std::string lastError;
};

using Events = std::vector<std::string>;

/// Of this process.
std::ptrdiff_t openDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

class CurlWebEngine : public ::testing::Test, protected LocalWeb {
protected:
    CurlWebEngine() {
        use({});
        view->setDelegate(reports);
    }

    /// Runs the loop until as many reports have come.
    Events after(std::size_t count) {
        EXPECT_TRUE(waitUntil([&] { return reports->all.size() >= count; }));
        return reports->all;
    }

    std::shared_ptr<Reports> reports = std::make_shared<Reports>();
    std::shared_ptr<platform::UIWebView> view = std::make_shared<platform::UIWebView>(platform::CGRectZero);
};

TEST_F(CurlWebEngine, ReportsStartAndFinishAndReturnsTextAndLinks) {
    server.reply("/list?a=b", "<h1>Packages</h1><a href=one>One</a>");
    view->loadRequest({server.url("/list?a=b")});
    EXPECT_EQ(reports->all, Events());
    EXPECT_EQ(after(2), (Events{"start", "finish"}));
    EXPECT_EQ(view->text(), "Packages\n\nOne [1]\n");
    EXPECT_EQ(view->links(), (std::vector<platform::WebLink>{{"One", server.url("/one")}}));
}

TEST_F(CurlWebEngine, ReportsAFailureWhenTheConnectionIsRefused) {
    const RefusingPort refusing;
    view->loadRequest({"http://127.0.0.1:" + std::to_string(refusing.port()) + "/"});
    EXPECT_EQ(after(2), (Events{"start", "fail"}));
    EXPECT_EQ(view->text(), "");
    EXPECT_NE(reports->lastError, "");
}

TEST_F(CurlWebEngine, ReportsAFailureWhenTheSystemHasNoMoreThreads) {
    server.reply("/", "text");
    const NoMoreThreads none;
    view->loadRequest({server.url("/")});
    EXPECT_EQ(after(2), (Events{"start", "fail"}));
    EXPECT_EQ(reports->lastError, "The system cannot create another thread");
}

TEST_F(CurlWebEngine, TimesOutOnASilentServer) {
    use({.largestPage = 1000, .timeout = 200ms, .connectTo = ""});
    server.hang("/slow");
    view->loadRequest({server.url("/slow")});
    EXPECT_EQ(after(2), (Events{"start", "fail"}));
    EXPECT_EQ(reports->lastError, "Timeout was reached");
}

TEST_F(CurlWebEngine, RefusesAPageThatIsTooLarge) {
    use({.largestPage = 1000, .timeout = testTimeout, .connectTo = ""});
    server.reply("/large", std::string(1001, 'x'));
    server.replyRaw("/endless", "HTTP/1.1 200 OK\r\n\r\n" + std::string(5000, 'x'));
    server.reply("/fits", std::string(1000, 'x'));
    view->loadRequest({server.url("/large")});
    EXPECT_EQ(after(2), (Events{"start", "fail"}));
    view->loadRequest({server.url("/endless")});
    EXPECT_EQ(after(4), (Events{"start", "fail", "start", "fail"}));
    view->loadRequest({server.url("/fits")});
    EXPECT_EQ(after(6).back(), "finish");
}

TEST_F(CurlWebEngine, FollowsALimitedNumberOfRedirectionsToWebPagesOnly) {
    server.redirect("/old", "/new/");
    server.reply("/new/", "<a href=x>x</a>");
    server.redirect("/ring", "/ring");
    server.redirect("/file", "file:///etc/passwd");
    view->loadRequest({server.url("/old")});
    EXPECT_EQ(after(2).back(), "finish");
    EXPECT_EQ(view->links().at(0).url, server.url("/new/x"));
    view->loadRequest({server.url("/ring")});
    EXPECT_EQ(after(4).back(), "fail");
    view->loadRequest({server.url("/file")});
    EXPECT_EQ(after(6).back(), "fail");
}

TEST_F(CurlWebEngine, LoadsNothingButWebAddresses) {
    for (const char* url : {"file:///etc/passwd", "ftp://127.0.0.1/", "", "nonsense:", "http://"}) {
        reports->all.clear();
        view->loadRequest({url});
        EXPECT_EQ(after(2), (Events{"start", "fail"})) << url;
    }
}

TEST_F(CurlWebEngine, ShowsTheServersOwnErrorPage) {
    view->loadRequest({server.url("/missing")});
    EXPECT_EQ(after(2), (Events{"start", "finish"}));
    EXPECT_EQ(view->text(), "Nothing here\n");
}

TEST_F(CurlWebEngine, ShowsPlainTextAsItIsAndOtherKindsAsNothing) {
    server.reply("/text", "a <b>\nc", "text/plain");
    server.reply("/image", "\x89PNG", "image/png");
    view->loadRequest({server.url("/text")});
    after(2);
    EXPECT_EQ(view->text(), "a <b>\nc\n");
    view->loadRequest({server.url("/image")});
    EXPECT_EQ(after(4).back(), "finish");
    EXPECT_EQ(view->text(), "");
}

TEST_F(CurlWebEngine, CancelsALoadSilentlyWhenAnotherIsRequested) {
    server.hang("/slow");
    server.reply("/fast", "fast");
    view->loadRequest({server.url("/slow")});
    EXPECT_TRUE(waitUntil([&] { return server.requests().size() == 1; }));
    view->loadRequest({server.url("/fast")});
    EXPECT_EQ(after(3), (Events{"start", "start", "finish"}));
    EXPECT_EQ(view->text(), "fast\n");
    EXPECT_TRUE(waitUntil([&] { return server.abandoned() == 1; }));
}

TEST_F(CurlWebEngine, LoadsOnlyTheSecondOfTwoImmediateRequests) {
    server.reply("/one", "one");
    server.reply("/two", "two");
    view->loadRequest({server.url("/one")});
    view->loadRequest({server.url("/two")});
    EXPECT_EQ(after(2), (Events{"start", "finish"}));
    EXPECT_EQ(server.requests(), (std::vector<std::string>{"/two"}));
}

TEST_F(CurlWebEngine, HasTheTimeoutOfThePlatformsRequests) {
    EXPECT_EQ(platform::TextWebEngineOptions().timeout, 60s);
}

TEST_F(CurlWebEngine, CancelsItsLoadWhenTheViewIsGone) {
    server.hang("/slow");
    view->loadRequest({server.url("/slow")});
    EXPECT_TRUE(waitUntil([&] { return server.requests().size() == 1; }));
    view = nullptr;
    EXPECT_TRUE(waitUntil([&] { return server.abandoned() == 1; }));
    EXPECT_EQ(reports->all, (Events{"start"}));
}

TEST_F(CurlWebEngine, KeepsNothingOfALoadWhoseViewIsGone) {
    server.reply("/", "first");
    view->loadRequest({server.url("/")});
    after(2);
    const auto before = openDescriptors();
    server.hang("/slow");
    view->loadRequest({server.url("/slow")});
    EXPECT_TRUE(waitUntil([&] { return server.requests().size() == 2; }));
    EXPECT_GT(openDescriptors(), before);
    view = nullptr;
    EXPECT_TRUE(waitUntil([&] { return openDescriptors() == before; }));
}

TEST_F(CurlWebEngine, CancelsEveryLoadWhenItIsDestroyed) {
    server.hang("/slow");
    view->loadRequest({server.url("/slow")});
    EXPECT_TRUE(waitUntil([&] { return server.requests().size() == 1; }));
    endEngine();
    EXPECT_TRUE(waitUntil([&] { return server.abandoned() == 1; }));
    EXPECT_EQ(reports->all, (Events{"start"}));
}

TEST_F(CurlWebEngine, LoadsForSeveralViewsAtOnce) {
    const auto other = std::make_shared<platform::UIWebView>(platform::CGRectZero);
    const auto otherReports = std::make_shared<Reports>();
    other->setDelegate(otherReports);
    server.hang("/slow");
    server.reply("/fast", "fast");
    view->loadRequest({server.url("/slow")});
    other->loadRequest({server.url("/fast")});
    EXPECT_TRUE(waitUntil([&] { return otherReports->all.size() == 2; }));
    EXPECT_EQ(reports->all, (Events{"start"}));
}

TEST_F(CurlWebEngine, ConnectsToTheAddressThatATestSets) {
    useFor("listing.example", server.port());
    server.reply("/page", "here");
    view->loadRequest({"http://listing.example/page"});
    EXPECT_EQ(after(2), (Events{"start", "finish"}));
    EXPECT_NE(server.lastRequest().find("Host: listing.example"), std::string::npos);
}

} // namespace
} // namespace wardlock::test
