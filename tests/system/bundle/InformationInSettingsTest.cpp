#include "platform/ui/UIActivityIndicatorView.h"
#include "platform/ui/UITextView.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/LocalWeb.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace wardlock::test {
namespace {

constexpr const char* listing = "/packagesfordev.php?name=kitbay";

/// The information pages of this build's bundle, used as a user does.
class InformationInSettings : public SettingsApplicationFixture, protected LocalWeb {
protected:
    void open(std::string_view rowLabel) {
        start();
        tap("Wardlock");
        tap(rowLabel);
    }
    std::shared_ptr<platform::UIWebView> web() { return page().contentView<platform::UIWebView>(); }
    bool isLoading() { return page().contentView<platform::UIActivityIndicatorView>()->isAnimating(); }
    bool waitForLoad() {
        return waitUntil([this] { return isLoading(); }) && waitUntil([this] { return !isLoading(); });
    }
};

TEST_F(InformationInSettings, ShowsThisProjectsOwnChangeLog) {
    open("Change Log");
    EXPECT_EQ(page().title(), "Change Log");
    const auto textView = page().contentView<platform::UITextView>();
    ASSERT_NE(textView, nullptr);
    std::ifstream file(sourceFolder() + "/resources/changelog.txt", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(textView->text(), text);
    EXPECT_NE(text.find("0.1.0"), std::string::npos);
    EXPECT_FALSE(textView->isEditable());
}

TEST_F(InformationInSettings, ShowsTheListingAndFollowsItsLinks) {
    useFor(WARDLOCK_REPOSITORY_HOST, server.port());
    server.reply(listing, "<a href='/one'>One</a>");
    server.reply("/one", "First package");
    open("More From Tavix");
    EXPECT_EQ(page().title(), "Other Tweaks");
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(web()->text(), "One [1]\n");
    const auto result = settings().page().followLink(web()->links().at(0).url);
    ASSERT_TRUE(result) << result.reason();
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(web()->text(), "First package\n");
}

TEST_F(InformationInSettings, ReturnsFromAFollowedLinkAndLoadsAgain) {
    useFor(WARDLOCK_REPOSITORY_HOST, server.port());
    server.reply(listing, "<a href='/one'>One</a>");
    server.reply("/one", "First package");
    open("More From Tavix");
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(settings().page().goBackOnWebPage().reason(), "there is no earlier web page");
    ASSERT_TRUE(settings().page().followLink(1));
    ASSERT_TRUE(waitForLoad());
    ASSERT_TRUE(settings().page().goBackOnWebPage());
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(web()->text(), "One [1]\n");
    server.reply(listing, "Listing");
    ASSERT_TRUE(settings().page().reloadWebPage());
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(web()->text(), "Listing\n");
    ASSERT_TRUE(settings().page().goBack());
    EXPECT_EQ(settings().page().reloadWebPage().reason(), "the page shows no web page");
}

TEST_F(InformationInSettings, ShowsNoMessageWhenTheListingFails) {
    const RefusingPort refusing;
    useFor(WARDLOCK_REPOSITORY_HOST, refusing.port());
    open("More From Tavix");
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(web()->text(), "");
    EXPECT_EQ(settings().screen().alert(), nullptr);
    EXPECT_EQ(settings().screen().notice(), "");
}

TEST_F(InformationInSettings, CancelsTheListingWhenItsPageIsLeft) {
    useFor(WARDLOCK_REPOSITORY_HOST, server.port());
    server.hang(listing);
    open("More From Tavix");
    ASSERT_TRUE(waitUntil([this] { return server.requests().size() == 1; }));
    ASSERT_TRUE(settings().page().goBack());
    EXPECT_TRUE(waitUntil([this] { return server.abandoned() == 1; }));
    EXPECT_EQ(page().title(), "Wardlock");
}

TEST_F(InformationInSettings, LoadsTheListingAgainOnEachVisit) {
    useFor(WARDLOCK_REPOSITORY_HOST, server.port());
    server.reply(listing, "Listing");
    open("More From Tavix");
    ASSERT_TRUE(waitForLoad());
    ASSERT_TRUE(settings().page().goBack());
    tap("More From Tavix");
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(server.requests(), (std::vector<std::string>{listing, listing}));
}

} // namespace
} // namespace wardlock::test
