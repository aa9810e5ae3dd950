// The page of the web as the engine of this machine shows it, from a server of the test's own. Where none is
// installed the same tests hold the window to what it then shows.

#include "tests/support/HttpServer.h"
#include "tests/unit/window/WindowFixture.h"

#include <QFile>
#include <QLibraryInfo>
#include <gtest/gtest.h>

#include <algorithm>

namespace wardlock::test {

/// A page whose title is what its body says, once its script has run.
std::string page(const std::string& words, const std::string& color, const std::string& target = "_self") {
    return "<!doctype html><title>not yet</title><body style='margin:0;background:" + color +
           "'><a href='/next' target='" + target + "' style='display:block;height:100vh'>" + words +
           "</a><script>document.title = document.body.innerText.trim()</script>";
}

class WindowWebEngine : public WindowFixture {
protected:
    static constexpr const char* listing = "/packagesfordev.php?name=kitbay";

    static bool engineIsInstalled() {
        return QFile::exists(QLibraryInfo::path(QLibraryInfo::QmlImportsPath) + "/QtWebEngine/qmldir");
    }
    /// Opens the page with every host of the web at the port of this machine.
    void openListing(int port) {
        mapWebTo("127.0.0.1:" + std::to_string(port));
        openWardlock();
        scene().reveal("row:More From Tavix");
        scene().tap("row:More From Tavix");
        scene().item("page:Other Tweaks");
    }
    /// What a person then sees, with the way out that works.
    void expectEngineMissing() {
        scene().item("web:missing");
        scene().expectGone("spinner");
        scene().tap("web:browser");
        ASSERT_EQ(openedUrls.size(), 1U);
        EXPECT_TRUE(openedUrls[0].ends_with(listing)) << openedUrls[0];
    }
    /// `target` is the link's.
    void expectFollowsLink(const std::string& target) {
        server.answer(listing, page("first", "#00ff00", target));
        server.answer("/next", page("second", "#0000ff"));
        openListing(server.port());
        if (!engineIsInstalled())
            return expectEngineMissing();
        EXPECT_TRUE(titleBecomes("first"));
        EXPECT_TRUE(middleBecomes(QColor(0, 255, 0)));
        scene().expectGone("spinner");
        scene().tap("web");
        EXPECT_TRUE(titleBecomes("second"));
        EXPECT_TRUE(middleBecomes(QColor(0, 0, 255)));
        scene().expectGone("spinner");
        EXPECT_EQ(scene().text("title"), "Other Tweaks");
        EXPECT_EQ(timesAsked(), 1);
    }
    std::ptrdiff_t timesAsked() const { return std::ranges::count(server.requests(), std::string(listing)); }
    QQuickItem* web() { return scene().item("web"); }
    bool titleBecomes(const QString& title) {
        return until([&] { return web()->property("title").toString() == title; });
    }
    bool middleBecomes(QColor color) {
        return until([&] {
            return window().grabWindow().pixelColor(window().width() / 2, window().height() / 2) == color;
        });
    }

    HttpServer server;
};

TEST_F(WindowWebEngine, ShowsThePageThatTheServerGives) {
    server.answer(listing, page("Kitbay and friends", "#00ff00"));
    openListing(server.port());
    if (!engineIsInstalled())
        return expectEngineMissing();
    EXPECT_TRUE(titleBecomes("Kitbay and friends"));
    EXPECT_TRUE(middleBecomes(QColor(0, 255, 0)));
    scene().expectGone("spinner");
    EXPECT_FALSE(scene().shows("web:missing"));
    EXPECT_EQ(timesAsked(), 1);
}

TEST_F(WindowWebEngine, FollowsALinkWithinThePage) {
    expectFollowsLink("_self");
}

TEST_F(WindowWebEngine, FollowsALinkThatAsksForItsOwnWindowWithinThePageToo) {
    expectFollowsLink("_blank");
}

TEST_F(WindowWebEngine, SpinsUntilTheServerAnswers) {
    server.hang(listing);
    openListing(server.port());
    if (!engineIsInstalled())
        return expectEngineMissing();
    scene().item("spinner");
    EXPECT_TRUE(until([&] { return !server.requests().empty(); }));
    EXPECT_TRUE(scene().shows("spinner"));
    // The engine may ask once more when its connection ends.
    server.answer(listing, page("at last", "#00ff00"));
    server.hangUp();
    scene().expectGone("spinner");
}

TEST_F(WindowWebEngine, StaysBlankAndSilentWhenTheLoadFails) {
    const RefusingPort nobody;
    openListing(nobody.port());
    if (!engineIsInstalled())
        return expectEngineMissing();
    // Either it spins still or the failure is here already.
    bool failed = false;
    auto* model = dynamic_cast<window::PagesModel*>(host().settings().pages())->top()->web();
    ASSERT_TRUE(model);
    QObject::connect(model, &window::WebModel::changed, model,
                     [&] { failed = failed || !model->isLoading(); });
    EXPECT_TRUE(until([&] { return failed; }));
    scene().expectGone("spinner");
    EXPECT_TRUE(middleBecomes(Qt::white));
    EXPECT_FALSE(scene().shows("alert"));
    EXPECT_FALSE(scene().shows("notice"));
    EXPECT_FALSE(scene().shows("web:missing"));
}

TEST_F(WindowWebEngine, LoadsAnewWhenThePageIsOpenedAgain) {
    server.answer(listing, page("once", "#00ff00"));
    openListing(server.port());
    if (!engineIsInstalled())
        return expectEngineMissing();
    EXPECT_TRUE(titleBecomes("once"));
    server.answer(listing, page("twice", "#00ff00"));
    scene().tap("back");
    scene().expectGone("page:Other Tweaks");
    scene().tap("row:More From Tavix");
    EXPECT_TRUE(titleBecomes("twice"));
    EXPECT_EQ(timesAsked(), 2);
}

} // namespace wardlock::test
