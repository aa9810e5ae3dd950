// The page of the web as the engine shows it, from a server of the test's own.

#include "tests/support/HttpServer.h"
#include "tests/unit/window/WindowFixture.h"

#include <QFile>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

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

    void SetUp() override {
        ASSERT_TRUE(QFile::exists(QLibraryInfo::path(QLibraryInfo::QmlImportsPath) + "/QtWebEngine/qmldir"))
            << "the web engine is not installed: the package qml6-module-qtwebengine";
    }
    /// Opens the page with every host of the web at the port of this machine.
    void openListing(int port) {
        mapWebTo("127.0.0.1:" + std::to_string(port));
        openWardlock();
        scene().reveal("row:More From Tavix");
        scene().tap("row:More From Tavix");
        scene().item("page:Other Tweaks");
    }
    /// `target` is the link's.
    void expectFollowsLink(const std::string& target) {
        server.reply(listing, page("first", "#00ff00", target));
        server.reply("/next", page("second", "#0000ff"));
        openListing(server.port());
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

TEST_F(WindowWebEngine, ShowsThePageOfTheServer) {
    server.reply(listing, page("Kitbay and friends", "#00ff00"));
    openListing(server.port());
    EXPECT_TRUE(titleBecomes("Kitbay and friends"));
    EXPECT_TRUE(middleBecomes(QColor(0, 255, 0)));
    scene().expectGone("spinner");
    EXPECT_FALSE(scene().shows("web:failure"));
    EXPECT_EQ(timesAsked(), 1);
}

TEST_F(WindowWebEngine, FollowsALinkWithinThePage) {
    expectFollowsLink("_self");
}

TEST_F(WindowWebEngine, FollowsALinkThatAsksForItsOwnWindowWithinThePageToo) {
    expectFollowsLink("_blank");
}

TEST_F(WindowWebEngine, SpinsUntilTheServerReplies) {
    server.hang(listing);
    openListing(server.port());
    scene().item("spinner");
    EXPECT_TRUE(until([&] { return !server.requests().empty(); }));
    EXPECT_TRUE(scene().shows("spinner"));
    // The engine may ask once more when its connection ends.
    server.reply(listing, page("at last", "#00ff00"));
    server.hangUp();
    scene().expectGone("spinner");
}

TEST_F(WindowWebEngine, StaysBlankAndSilentWhenTheLoadFails) {
    const RefusingPort refusing;
    openListing(refusing.port());
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
    EXPECT_FALSE(scene().shows("web:failure"));
}

TEST_F(WindowWebEngine, LoadsAgainWhenThePageIsOpenedAgain) {
    server.reply(listing, page("once", "#00ff00"));
    openListing(server.port());
    EXPECT_TRUE(titleBecomes("once"));
    server.reply(listing, page("twice", "#00ff00"));
    scene().tap("back");
    scene().expectGone("page:Other Tweaks");
    scene().tap("row:More From Tavix");
    EXPECT_TRUE(titleBecomes("twice"));
    EXPECT_EQ(timesAsked(), 2);
}

TEST_F(WindowWebEngine, ReturnsFromAFollowedLinkByTheButtonUnderThePage) {
    expectFollowsLink("_self");
    scene().tap("web:back");
    EXPECT_TRUE(titleBecomes("first"));
    EXPECT_TRUE(until([&] { return !scene().item("web:back")->isEnabled(); }));
    EXPECT_EQ(scene().text("title"), "Other Tweaks");
}

TEST_F(WindowWebEngine, ReturnsFromAFollowedLinkByKeysAndLeavesThePageAfterwards) {
    expectFollowsLink("_self");
    scene().press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(titleBecomes("first"));
    EXPECT_TRUE(until([&] { return !scene().item("web:back")->isEnabled(); }));
    scene().press(Qt::Key_Left, Qt::AltModifier);
    scene().expectGone("page:Other Tweaks");
}

TEST_F(WindowWebEngine, ReturnsFromAFollowedLinkByBackspaceButNotFromThePage) {
    expectFollowsLink("_self");
    scene().press(Qt::Key_Backspace);
    EXPECT_TRUE(titleBecomes("first"));
    EXPECT_TRUE(until([&] { return !scene().item("web:back")->isEnabled(); }));
    scene().press(Qt::Key_Backspace);
    scene().settle();
    EXPECT_EQ(scene().text("title"), "Other Tweaks");
}

TEST_F(WindowWebEngine, KeepsBackspaceForAFieldOfAFollowedPage) {
    server.reply(listing, page("first", "#00ff00"));
    server.reply("/next",
                 "<!doctype html><title>not yet</title><input value=ab style='width:100vw;height:100vh' "
                 "onfocus='document.title = `focused`' oninput='document.title = `[${value}]`'>"
                 "<script>document.title = 'shown'</script>");
    openListing(server.port());
    EXPECT_TRUE(titleBecomes("first"));
    EXPECT_TRUE(middleBecomes(QColor(0, 255, 0)));
    scene().tap("web");
    EXPECT_TRUE(titleBecomes("shown"));
    EXPECT_TRUE(middleBecomes(Qt::white));
    scene().expectGone("spinner");
    scene().tap("web");
    EXPECT_TRUE(titleBecomes("focused"));
    scene().press(Qt::Key_End);
    scene().press(Qt::Key_Backspace);
    EXPECT_TRUE(titleBecomes("[a]"));
    scene().press(Qt::Key_Backspace);
    EXPECT_TRUE(titleBecomes("[]"));
    EXPECT_TRUE(web()->property("canGoBack").toBool());
}

TEST_F(WindowWebEngine, LeavesThePageByTheWindowsOwnButtonWhateverWasFollowed) {
    expectFollowsLink("_self");
    scene().tap("back");
    scene().expectGone("page:Other Tweaks");
}

TEST_F(WindowWebEngine, OpensThePageThatIsShownInTheBrowser) {
    expectFollowsLink("_self");
    scene().tap("web:browser");
    ASSERT_EQ(urls.opened.size(), 1U);
    EXPECT_TRUE(urls.opened[0].starts_with("http://") && urls.opened[0].ends_with("/next")) << urls.opened[0];
}

/// A hostile page. Its script sets the title, which is what it could find out.
class HostileWebPage : public WindowWebEngine {
protected:
    static std::string scripted(const std::string& body, const std::string& script) {
        return "<!doctype html><title>not yet</title><body style='margin:0'>" + body + "<script>" + script +
               "</script>";
    }
    /// Opens the page as the listing; what its script then found out.
    bool setsTitle(const std::string& html, const QString& title) {
        server.reply(listing, html);
        openListing(server.port());
        return titleBecomes(title);
    }
    QString scheme() { return web()->property("url").toUrl().scheme(); }
    /// All files and folders in the user's folders that the engine made.
    std::vector<std::string> tracesOnDisk() const {
        std::vector<std::string> traces;
        for (const char* name : {"home", "data", "config", "cache"})
            for (const auto& entry : std::filesystem::recursive_directory_iterator(folder() / name))
                if (const std::string path = entry.path(); path.find("QtWebEngine") != std::string::npos)
                    traces.push_back(path);
        return traces;
    }
};

/// An address outside the web.
struct OutsideTheWeb {
    const char* name;
    const char* address;
};

class HostileLink : public HostileWebPage, public ::testing::WithParamInterface<OutsideTheWeb> {
protected:
    /// A link over the whole page that leads there within the page first, and in a window of its own the next
    /// time. Some time after each tap the title is the link's target, if the page is still there.
    static std::string trap(const std::string& address) {
        return scripted("<a target=_self style='display:block;height:100vh;background:#00ff00' href='" +
                            address + "'></a>",
                        "document.title = 'waiting';"
                        "const link = document.querySelector('a');"
                        "link.addEventListener('click', () => setTimeout(() => {"
                        "    document.title = link.target;"
                        "    link.target = '_blank';"
                        "}, 500))");
    }
};

TEST_P(HostileLink, LeadsNowhere) {
    server.reply(listing, trap(GetParam().address));
    openListing(server.port());
    EXPECT_TRUE(titleBecomes("waiting"));
    EXPECT_TRUE(middleBecomes(QColor(0, 255, 0)));
    for (const char* target : {"_self", "_blank"}) {
        scene().tap("web");
        ASSERT_TRUE(titleBecomes(target));
        EXPECT_EQ(scheme(), "http") << target;
    }
}

INSTANTIATE_TEST_SUITE_P(EachScheme, HostileLink,
                         ::testing::Values(OutsideTheWeb{"File", "file:///etc/passwd"},
                                           OutsideTheWeb{"Data", "data:text/html,<title>gone</title>"},
                                           OutsideTheWeb{"Source", "view-source:http://host.example/"},
                                           OutsideTheWeb{"Engine", "chrome://version"},
                                           OutsideTheWeb{"Mail", "mailto:x@y.example"},
                                           OutsideTheWeb{"Blank", "about:blank"}),
                         [](const auto& link) { return link.param.name; });

TEST_F(HostileWebPage, OpensNothingByItself) {
    EXPECT_TRUE(setsTitle(scripted("", "const opened = window.open('/other');"
                                       "document.title = opened ? 'opened' : 'refused'"),
                          "refused"));
    EXPECT_EQ(server.requests().back(), listing);
}

TEST_F(HostileWebPage, IsNotRedirectedOutOfTheWeb) {
    server.redirect(listing, "file:///etc/passwd");
    openListing(server.port());
    EXPECT_TRUE(until([&] { return !server.requests().empty(); }));
    scene().expectGone("spinner");
    EXPECT_NE(scheme(), "file");
}

TEST_F(HostileWebPage, ShowsNoDialog) {
    const auto windows = QGuiApplication::allWindows().size();
    EXPECT_TRUE(setsTitle(scripted("", "alert('x'); document.title = confirm('x') + ' ' + prompt('x', 'y')"),
                          "false null"));
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows + 1);
}

TEST_F(HostileWebPage, AsksForNoPassword) {
    const std::string body = "<title>locked</title>";
    server.replyRaw(listing, "HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=x\r\n"
                             "Content-Type: text/html\r\nConnection: close\r\nContent-Length: " +
                                 std::to_string(body.size()) + "\r\n\r\n" + body);
    openListing(server.port());
    EXPECT_TRUE(titleBecomes("locked"));
    scene().expectGone("spinner");
}

TEST_F(HostileWebPage, GetsNoFileOfTheUser) {
    server.reply(
        listing,
        scripted("<input type=file style='display:block;width:100vw;height:100vh;background:#00ff00'>",
                 "document.title = 'waiting';"
                 "document.querySelector('input').addEventListener('click', () => "
                 "setTimeout(() => document.title = 'files: ' + "
                 "document.querySelector('input').files.length, 500))"));
    openListing(server.port());
    EXPECT_TRUE(titleBecomes("waiting"));
    EXPECT_TRUE(middleBecomes(QColor(0, 255, 0)));
    const auto windows = QGuiApplication::allWindows().size();
    scene().tap("web");
    EXPECT_TRUE(titleBecomes("files: 0"));
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows);
}

TEST_F(HostileWebPage, SavesNoFile) {
    server.replyRaw("/file",
                    "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\nContent-Disposition: "
                    "attachment; filename=file\r\nConnection: close\r\nContent-Length: 4\r\n\r\nfile");
    server.reply(listing, scripted("<iframe src=/file></iframe>",
                                   "document.cookie = 'a=b; max-age=100000'; localStorage.setItem('a', 'b');"
                                   "document.title = document.cookie + ' ' + localStorage.getItem('a')"));
    openListing(server.port());
    EXPECT_TRUE(titleBecomes("a=b b"));
    EXPECT_TRUE(until([&] { return std::ranges::count(server.requests(), "/file") == 1; }));
    quit();
    EXPECT_EQ(tracesOnDisk(), std::vector<std::string>());
    EXPECT_TRUE(std::filesystem::is_empty(folder() / "home"));
}

TEST_F(HostileWebPage, GetsNoPermission) {
    // Of all origins without encryption this one may ask.
    server.redirect(listing, "http://localhost/ask");
    server.reply("/ask",
                 scripted("", "navigator.geolocation.getCurrentPosition(() => document.title = 'given',"
                              "error => document.title = 'refused ' + error.code)"));
    openListing(server.port());
    EXPECT_TRUE(titleBecomes("refused 1"));
}

TEST_F(HostileWebPage, DoesNotBlankItselfByAScript) {
    EXPECT_TRUE(setsTitle(scripted("", "location = 'about:blank';"
                                       "setTimeout(() => document.title = 'still here', 500)"),
                          "still here"));
    EXPECT_EQ(scheme(), "http");
}

TEST_F(HostileWebPage, IsShownAndLeftWithAHundredThousandLinks) {
    std::string links;
    for (int i = 0; i < 100000; ++i)
        links += "<a href='/" + std::to_string(i) + "'>link</a> ";
    EXPECT_TRUE(setsTitle(
        scripted(links + std::string(1U << 20, 'x'), "document.title = document.links.length"), "100000"));
    scene().tap("back");
    scene().expectGone("page:Other Tweaks");
}

TEST_F(HostileWebPage, IsLeftWhileItNeverEnds) {
    server.replyForEver(listing,
                        "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n<!doctype html><title>on</title>",
                        "<p>" + std::string(4096, 'x') + "</p>");
    openListing(server.port());
    EXPECT_TRUE(titleBecomes("on"));
    EXPECT_TRUE(scene().shows("spinner"));
    scene().tap("back");
    scene().expectGone("page:Other Tweaks");
    // The server is free again only when the engine no longer takes what it sends.
    server.reply(listing, page("the end", "#00ff00"));
    scene().tap("row:More From Tavix");
    EXPECT_TRUE(titleBecomes("the end"));
}

} // namespace wardlock::test
