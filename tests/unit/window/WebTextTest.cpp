// The page of the web where there is no web engine: its text, from a server of the test's own.

#include "tests/support/HttpServer.h"
#include "tests/unit/window/WindowFixture.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QQmlEngine>
#include <gtest/gtest.h>

namespace wardlock::test {

class WindowWebText : public WindowFixture {
protected:
    static constexpr const char* listing = "/packagesfordev.php?name=kitbay";

    WindowWebText() {
        environment.unset("no_proxy");
        environment.unset("NO_PROXY");
        askAt(server.port());
    }
    ~WindowWebText() override {
        quit();
        qInstallMessageHandler(earlierHandler_);
    }

    /// Every page is requested from that port of this machine.
    void askAt(int port) { environment.set("http_proxy", "http://127.0.0.1:" + std::to_string(port)); }
    void openListing() {
        openWardlock();
        hideWebEngine();
        scene().reveal("row:More From Tavix");
        scene().tap("row:More From Tavix");
        scene().item("page:Other Tweaks");
    }
    void openListing(const std::string& html) {
        server.reply(listing, html);
        openListing();
    }
    /// QML then finds the modules that it has loaded, and no other.
    void hideWebEngine() {
        QQmlEngine* engine = qmlEngine(&window());
        QStringList paths = engine->importPathList();
        paths.removeAll(QLibraryInfo::path(QLibraryInfo::QmlImportsPath));
        engine->setImportPathList(paths);
    }
    /// Whether assistive technology receives a line of the page, with its role.
    bool describes(const std::string& line) {
        return until([&] { return scene().accessibilityTree().find(line) != std::string::npos; });
    }
    std::ptrdiff_t timesAsked(const char* path) const {
        return std::ranges::count(server.requests(), std::string(path));
    }
    bool canGoBack() { return scene().item("web:back")->isEnabled(); }
    bool isFocused(const QString& name) {
        return until([&] { return scene().shows(name) && scene().find(name)->hasActiveFocus(); });
    }
    /// Opens a page with a link and follows it.
    void followLink() {
        server.reply("/next", "<h1>Second</h1>");
        openListing("<h1>First</h1><p>Go to the <a href=/next>next page</a>.");
        scene().tap("link:next page");
        EXPECT_TRUE(describes("Heading: Second"));
        EXPECT_TRUE(canGoBack());
    }
    void expectFirstPage() {
        EXPECT_TRUE(describes("Heading: First"));
        EXPECT_TRUE(until([&] { return !canGoBack(); }));
        EXPECT_EQ(scene().text("title"), "Other Tweaks");
    }

    HttpServer server;
    static inline QStringList warnings;

private:
    QtMessageHandler earlierHandler_ = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& message) { warnings.append(message); });
};

TEST_F(WindowWebText, ShowsHeadingsParagraphsListsAndCode) {
    openListing("<h1>Our packages</h1><p>Two of them &amp; more.<ul><li>One <b>item</b><li>Two</ul>"
                "<h3>To install</h3><pre>apt install\n  kitbay</pre>");
    EXPECT_TRUE(describes("Heading: Our packages\n"));
    EXPECT_TRUE(describes("StaticText: Two of them & more.\n"));
    EXPECT_TRUE(describes("ListItem: One item\n"));
    EXPECT_TRUE(describes("ListItem: Two\n"));
    EXPECT_TRUE(describes("Heading: To install\n"));
    EXPECT_TRUE(describes("StaticText: apt install\n  kitbay\n"));
    scene().expectGone("spinner");
    EXPECT_FALSE(scene().shows("web:failure"));
    EXPECT_EQ(timesAsked(listing), 1);
}

TEST_F(WindowWebText, HasTheMarkOfAnItemWhereItsTextBegins) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    openListing("<ul><li>One");
    ASSERT_TRUE(describes("ListItem: One\n"));
    const auto isOnTheLeft = [&] { return scene().middleOf("web:bullet").x() < window().width() / 2.0; };
    EXPECT_TRUE(until(isOnTheLeft));
    server.reply(listing, "<ul><li>\u05e9\u05dc\u05d5\u05dd");
    scene().tap("back");
    scene().item("row:Passcode");
    scene().reveal("row:More From Tavix");
    scene().tap("row:More From Tavix");
    ASSERT_TRUE(describes("ListItem: \u05e9\u05dc\u05d5\u05dd\n"));
    EXPECT_TRUE(until([&] { return !isOnTheLeft(); }));
}

TEST_F(WindowWebText, BreaksNoWordOfAHeadingInANarrowWindow) {
    openListing("<h1>Packages</h1>");
    ASSERT_TRUE(describes("Heading: Packages\n"));
    window().resize(280, 600);
    host().appearance().forceTextScale(2);
    const auto* words = scene().item("web:words");
    const auto size = [&] { return words->property("font").value<QFont>().pixelSize(); };
    EXPECT_TRUE(until([&] { return size() >= 34 && words->property("lineCount").toInt() == 1; })) << size();
}

TEST_F(WindowWebText, IsQuietOnStandardError) {
    warnings.clear();
    followLink();
    scene().tap("web:back");
    expectFirstPage();
    EXPECT_EQ(warnings.join('\n').toStdString(), "");
}

TEST_F(WindowWebText, ReturnsFromAFollowedLinkByTheButtonUnderThePage) {
    followLink();
    scene().tap("web:back");
    expectFirstPage();
}

TEST_F(WindowWebText, ReturnsFromAFollowedLinkByKeysAndLeavesThePageAfterwards) {
    followLink();
    scene().press(Qt::Key_Left, Qt::AltModifier);
    expectFirstPage();
    scene().press(Qt::Key_Left, Qt::AltModifier);
    scene().expectGone("page:Other Tweaks");
}

TEST_F(WindowWebText, ReturnsFromAFollowedLinkByEscape) {
    followLink();
    scene().press(Qt::Key_Escape);
    expectFirstPage();
}

TEST_F(WindowWebText, ReturnsFromAFollowedLinkByBackspaceButNotFromThePage) {
    followLink();
    scene().press(Qt::Key_Backspace);
    expectFirstPage();
    scene().press(Qt::Key_Backspace);
    scene().settle();
    EXPECT_EQ(scene().text("title"), "Other Tweaks");
}

TEST_F(WindowWebText, LeavesThePageByTheWindowsOwnButtonWhateverWasFollowed) {
    followLink();
    scene().tap("back");
    scene().expectGone("page:Other Tweaks");
}

TEST_F(WindowWebText, FollowsALinkThatIsABlockOfItsOwnAsARow) {
    server.reply("/two", "<h1>Second</h1>");
    openListing("<ul><li><a href=/one>One</a><li><a href=/two>Two</a></ul>");
    scene().item("link:One");
    EXPECT_GE(scene().item("link:Two")->height(), 44);
    scene().touch("link:Two");
    EXPECT_TRUE(describes("Heading: Second"));
}

TEST_F(WindowWebText, FollowsLinksByTheKeyboard) {
    server.reply("/two", "<h1>Second</h1>");
    openListing("<p>The <a href=/one>first</a> and the <a href=/two>second</a>.<p><a href=/three>Row</a>");
    scene().item("link:first");
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(isFocused("link:first"));
    scene().press(Qt::Key_Tab);
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(isFocused("link:Row"));
    scene().press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(isFocused("link:second"));
    scene().press(Qt::Key_Return);
    EXPECT_TRUE(describes("Heading: Second"));
}

TEST_F(WindowWebText, ReachesTheButtonsAroundTheTextByTheKeyboardAndWrapsInOrder) {
    openListing("<p><a href=/one>one</a> link");
    scene().item("link:one");
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(isFocused("link:one"));
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(isFocused("web:browser"));
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(isFocused("back"));
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(isFocused("link:one"));
    scene().press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(isFocused("back"));
    scene().press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(isFocused("web:browser"));
    scene().press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(isFocused("link:one"));
}

TEST_F(WindowWebText, ReachesALinkFarBelowByTheKeyboard) {
    std::string lines;
    for (int i = 0; i < 300; ++i)
        lines += "<p>a line of text";
    openListing(lines + "<p><a href=/far>far</a> below");
    EXPECT_TRUE(describes("StaticText: a line of text"));
    EXPECT_FALSE(scene().shows("link:far"));
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(isFocused("link:far"));
    const QPointF place = scene().middleOf("link:far");
    EXPECT_TRUE(place.y() > 0 && place.y() < scene().item("web:browser")->mapToScene({}).y()) << place.y();
}

TEST_F(WindowWebText, ReturnsToThePlaceWhereALinkWasFollowed) {
    std::string lines;
    for (int i = 0; i < 300; ++i)
        lines += "<p>a line of text";
    server.reply("/far", "<h1>Second</h1>");
    openListing("<h1>First</h1>" + lines + "<p><a href=/far>far</a> below");
    EXPECT_TRUE(describes("Heading: First"));
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(isFocused("link:far"));
    scene().press(Qt::Key_Return);
    EXPECT_TRUE(describes("Heading: Second"));
    scene().press(Qt::Key_Backspace);
    scene().item("link:far");
    const QPointF place = scene().middleOf("link:far");
    EXPECT_TRUE(place.y() > 0 && place.y() < window().height()) << place.y();
}

TEST_F(WindowWebText, FollowsALinkForAssistiveTechnology) {
    server.reply("/next", "<h1>Second</h1>");
    openListing("<p>Go to the <a href=/next>next page</a>.");
    EXPECT_TRUE(describes("Link: next page"));
    scene()
        .accessible("link:next page")
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(describes("Heading: Second"));
}

TEST_F(WindowWebText, OffersNoLinkOutOfTheWeb) {
    openListing("<h1>First</h1><p><a href='file:///etc/passwd'>file</a> <a href='about:blank'>blank</a>");
    EXPECT_TRUE(describes("StaticText: file blank"));
    EXPECT_EQ(scene().namesWith("link:"), std::vector<std::string>());
}

TEST_F(WindowWebText, SpinsWhileItLoads) {
    server.hang(listing);
    openListing();
    scene().item("spinner");
    EXPECT_TRUE(until([&] { return timesAsked(listing) == 1; }));
    EXPECT_TRUE(scene().shows("spinner"));
    server.hangUp();
    scene().expectGone("spinner");
}

TEST_F(WindowWebText, TellsWhyAPageWasNotLoadedAndTriesAgain) {
    server.replyRaw(listing, "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\nConnection: close\r\n\r\ncut off");
    openListing();
    EXPECT_EQ(scene().text("web:reason"), "Transferred a partial file");
    EXPECT_TRUE(describes("AlertMessage: The page could not be loaded. Transferred a partial file"));
    EXPECT_FALSE(scene().shows("alert"));
    EXPECT_FALSE(scene().shows("notice"));
    server.reply(listing, "<h1>First</h1>");
    scene().tap("web:again");
    expectFirstPage();
    EXPECT_FALSE(scene().shows("web:failure"));
}

TEST_F(WindowWebText, TriesAgainByTheKeyboard) {
    const RefusingPort refusing;
    askAt(refusing.port());
    openListing();
    scene().item("web:again");
    askAt(server.port());
    server.reply(listing, "<h1>First</h1>");
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(isFocused("web:again"));
    scene().press(Qt::Key_Return);
    expectFirstPage();
}

TEST_F(WindowWebText, KeepsTheTextWhenALinkFailsAndReturnsToIt) {
    server.replyRaw("/next", "broken\r\n\r\n");
    openListing("<h1>First</h1><p>Go to the <a href=/next>next page</a>.");
    scene().tap("link:next page");
    scene().item("web:failure");
    EXPECT_TRUE(describes("Heading: First"));
    EXPECT_TRUE(canGoBack());
    scene().tap("web:back");
    scene().expectGone("web:failure");
    expectFirstPage();
}

TEST_F(WindowWebText, TellsThatAPageHasNoText) {
    server.reply(listing, "PNG", "image/png");
    openListing();
    scene().item("web:empty");
}

TEST_F(WindowWebText, OpensThePageThatIsShownInTheBrowser) {
    followLink();
    scene().tap("web:browser");
    ASSERT_EQ(urls.opened.size(), 1U);
    EXPECT_TRUE(urls.opened[0].starts_with("http://") && urls.opened[0].ends_with("/next")) << urls.opened[0];
}

TEST_F(WindowWebText, LoadsAnewWhenThePageIsOpenedAgain) {
    openListing("<h1>Once</h1>");
    EXPECT_TRUE(describes("Heading: Once"));
    server.reply(listing, "<h1>Twice</h1>");
    scene().tap("back");
    scene().expectGone("page:Other Tweaks");
    scene().tap("row:More From Tavix");
    EXPECT_TRUE(describes("Heading: Twice"));
    EXPECT_EQ(timesAsked(listing), 2);
}

TEST_F(WindowWebText, IsDarkInADarkWindow) {
    openListing("<h1>First</h1>");
    EXPECT_TRUE(describes("Heading: First"));
    const auto ground = [&] {
        return window().grabWindow().pixelColor(4, window().height() / 2).name().toStdString();
    };
    EXPECT_EQ(ground(), "#f2f2f7");
    host().appearance().force(true);
    EXPECT_TRUE(until([&] { return ground() == "#000000"; }));
}

TEST_F(WindowWebText, ShowsTheBeginningOfAHugePage) {
    std::string links;
    for (int i = 0; i < 20000; ++i)
        links += "<p>Text with a <a href=/x>link</a>";
    openListing(links);
    scene().item("link:link");
    scene().press(Qt::Key_End);
    scene().tap("back");
    scene().expectGone("page:Other Tweaks");
}

TEST_F(WindowWebText, ShowsTheBeginningOfALineThatIsHuge) {
    openListing(std::string(1000000, 'x'));
    EXPECT_TRUE(describes("StaticText: xxxxxxxx"));
    scene().tap("back");
    scene().expectGone("page:Other Tweaks");
}

} // namespace wardlock::test
