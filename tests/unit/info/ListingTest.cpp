#include "info/DeveloperController.h"
#include "info/DeveloperView.h"
#include "tests/support/LocalWeb.h"
#include "tests/support/PageFixture.h"

namespace wardlock::test {
namespace {

constexpr const char* listing = "/packagesfordev.php?name=kitbay";

/// The page of other packages over a server that replaces the repository's host.
class ListingPage : public PageFixture, protected LocalWeb {
protected:
    ListingPage() { useFor(WARDLOCK_REPOSITORY_HOST, server.port()); }

    void show() { page->viewWillAppear(false); }
    DeveloperView& view() { return dynamic_cast<DeveloperView&>(*page->view()); }
    platform::UIWebView& webView() { return dynamic_cast<platform::UIWebView&>(*view().subviews().at(0)); }
    bool isLoading() { return view().activity()->isAnimating(); }
    /// A whole load, from the spinner's start to its end.
    bool waitForLoad() {
        return waitUntil([this] { return isLoading(); }) && waitUntil([this] { return !isLoading(); });
    }

    std::shared_ptr<DeveloperController> page = std::make_shared<DeveloperController>();
};

TEST_F(ListingPage, ShowsTheListingUnderASpinnerThatStops) {
    server.reply(listing, "<h1>Other packages</h1>");
    show();
    EXPECT_FALSE(isLoading());
    EXPECT_TRUE(waitForLoad());
    EXPECT_EQ(webView().text(), "Other packages\n");
}

TEST_F(ListingPage, SpinsForAsLongAsTheServerTakes) {
    server.hang(listing);
    show();
    EXPECT_TRUE(waitUntil([this] { return server.requests().size() == 1; }));
    EXPECT_TRUE(isLoading());
    server.hangUp();
    EXPECT_TRUE(waitUntil([this] { return !isLoading(); }));
    EXPECT_EQ(webView().text(), "");
}

TEST_F(ListingPage, StaysBlankAndSilentWhenTheConnectionIsRefused) {
    const RefusingPort refusing;
    useFor(WARDLOCK_REPOSITORY_HOST, refusing.port());
    show();
    EXPECT_TRUE(waitForLoad());
    EXPECT_EQ(webView().text(), "");
    EXPECT_EQ(page->presentedViewController(), nullptr);
}

TEST_F(ListingPage, ShowsTheSpinnerAgainForALink) {
    server.reply(listing, "<a href='/package.php?id=7'>Seven</a>");
    server.reply("/package.php?id=7", "Package seven");
    show();
    EXPECT_TRUE(waitForLoad());
    ASSERT_EQ(webView().links().size(), 1u);
    webView().loadRequest({webView().links()[0].url});
    EXPECT_TRUE(waitForLoad());
    EXPECT_EQ(webView().text(), "Package seven\n");
    EXPECT_EQ(server.requests(), (std::vector<std::string>{listing, "/package.php?id=7"}));
}

TEST_F(ListingPage, CancelsALoadWhenThePageIsLeft) {
    server.hang(listing);
    show();
    EXPECT_TRUE(waitUntil([this] { return server.requests().size() == 1; }));
    page = nullptr;
    EXPECT_TRUE(waitUntil([this] { return server.abandoned() == 1; }));
}

TEST_F(ListingPage, LoadsFromTheStartWhenThePageIsShownAgain) {
    server.reply(listing, "<a href='/other'>Other</a>");
    server.reply("/other", "Other");
    show();
    EXPECT_TRUE(waitForLoad());
    webView().loadRequest({webView().links().at(0).url});
    EXPECT_TRUE(waitForLoad());
    show();
    EXPECT_TRUE(waitForLoad());
    EXPECT_EQ(webView().text(), "Other [1]\n");
    EXPECT_EQ(server.requests().back(), listing);
}

} // namespace
} // namespace wardlock::test
