#include "cli/io/Json.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/support/HttpServer.h"
#include "tests/unit/cli/CommandFixture.h"
#include "tests/unit/cli/Conversation.h"

#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

namespace wardlock::test {
namespace {

using cli::Json;

/// Scripts that the real command obeys.
class ScriptSettings : public BusFixture {
protected:
    static ProcessResult runScript(const std::string& script) {
        ProcessSetup setup;
        setup.input = script;
        return wardlockCommand({"settings", "--script", "-"}, setup);
    }
    /// The replies of a script that ends well.
    static std::vector<Json> repliesTo(const std::string& script) {
        const ProcessResult result = runScript(script);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        std::vector<Json> replies;
        std::istringstream lines(result.output);
        for (std::string line; std::getline(lines, line);) {
            const auto reply = cli::parseJson(line);
            EXPECT_TRUE(reply) << line;
            replies.push_back(reply.value_or(Json()));
        }
        return replies;
    }
    static Json lastReplyTo(const std::string& script) {
        const auto replies = repliesTo(script);
        EXPECT_FALSE(replies.empty());
        return replies.empty() ? Json() : replies.back();
    }
    static std::string error(const Json& reply) { return reply.value("error", ""); }

    static std::string documentOf(const std::vector<std::string>& names) {
        std::string accounts;
        for (const auto& name : names)
            accounts += "<dict><key>kAccountName</key><string>" + name + "</string></dict>";
        return xml("<dict><key>kAccounts</key><array>" + accounts + "</array></dict>");
    }
    /// The row of the key on the page of the picture.
    static Json rowOfKey(const Json& picture, std::string_view key) {
        for (const auto& section : picture["page"]["sections"])
            for (const auto& row : section["rows"])
                if (row.value("key", "") == key)
                    return row;
        ADD_FAILURE() << "no row of key " << key << " in " << picture;
        return Json::object();
    }
};

const std::string openFixture = "{\"do\":\"tap\",\"row\":\"Fixture\"}\n";

TEST_F(ScriptSettings, ShowsARowOfEveryKind) {
    installFixtureBundle();
    const Json seen = lastReplyTo(openFixture + R"({"do":"see"})");
    EXPECT_EQ(rowOfKey(seen, "on"), Json::parse(R"({"kind":"switch","label":"On","key":"on","on":false})"));
    EXPECT_EQ(rowOfKey(seen, "flavour"), Json::parse(R"({"kind":"linkList","label":"Flavour","key":"flavour",
        "text":"","choices":["Vanilla","Chocolate"]})"));
    EXPECT_EQ(rowOfKey(seen, "volume"), Json::parse(R"({"kind":"slider","label":"","key":"volume","value":0.0,
        "min":0.0,"max":10.0,"text":"0"})"));
    EXPECT_EQ(rowOfKey(seen, "pin"), Json::parse(R"({"kind":"secureEditText","label":"","key":"pin","text":"",
        "placeholder":"PIN","numberPad":true})"));
    EXPECT_EQ(rowOfKey(seen, "locked"),
              Json::parse(R"({"kind":"switch","label":"Locked","key":"locked","on":false,
        "enabled":false})"));
    EXPECT_EQ(seen["page"]["sections"][1]["header"], "Values");
    EXPECT_EQ(seen["page"]["sections"][1]["footer"], "All of them are kept.");
    EXPECT_EQ(seen["page"]["button"], "Add");
    EXPECT_EQ(seen["page"]["back"], "Settings");
}

TEST_F(ScriptSettings, ChangesARowOfEveryKind) {
    installFixtureBundle();
    const Json seen = lastReplyTo(openFixture + R"({"do":"tap","key":"on"}
{"do":"set","key":"volume","to":7.5}
{"do":"type","row":"Nickname","text":"Tom"}
{"do":"type","row":"PIN","text":"1234"}
{"do":"tap","row":"Flavour"}
{"do":"tap","row":"Chocolate"}
{"do":"back"}
{"do":"see"})");
    EXPECT_EQ(rowOfKey(seen, "on")["on"], true);
    EXPECT_EQ(rowOfKey(seen, "volume")["value"], 7.5);
    EXPECT_EQ(rowOfKey(seen, "nickname")["text"], "Tom");
    EXPECT_EQ(rowOfKey(seen, "pin")["text"], "••••");
    EXPECT_EQ(rowOfKey(seen, "flavour")["text"], "Choc");
}

TEST_F(ScriptSettings, ReportsTheMarkedChoice) {
    installFixtureBundle();
    const Json seen = lastReplyTo(openFixture + R"({"do":"tap","row":"Flavour"}
{"do":"tap","row":"Vanilla"}
{"do":"see"})");
    EXPECT_EQ(seen["page"]["sections"][0]["rows"][0]["marked"], true);
    EXPECT_FALSE(seen["page"]["sections"][0]["rows"][1].contains("marked"));
}

TEST_F(ScriptSettings, ShowsPartOfALongTable) {
    installFixtureBundle();
    const Json seen = lastReplyTo(openFixture + R"({"do":"tap","row":"Table"}
{"do":"tap","key":"row.9000"}
{"do":"see","first":8999,"count":2})");
    const Json section = seen["page"]["table"][0];
    EXPECT_EQ(section["count"], 10'000);
    ASSERT_EQ(section["rows"].size(), 2U);
    EXPECT_EQ(section["rows"][0], Json::parse(R"({"label":"Row 8999","key":"row.8999","on":false})"));
    EXPECT_EQ(section["rows"][1]["on"], true);
}

TEST_F(ScriptSettings, SetsNoSwitchWhileThePageMovesEvenToItsOwnState) {
    installFixtureBundle();
    const std::string moving = R"({"do":"transitions","seconds":0.35}
)";
    for (const std::string set :
         {R"({"do":"set","key":"row.3","to":false})", R"({"do":"set","key":"row.3","to":true})"})
        EXPECT_EQ(error(lastReplyTo(openFixture + moving + R"({"do":"tap","row":"Table"}
)" + set)),
                  "the page is still moving");
    for (const std::string set :
         {R"({"do":"set","key":"on","to":false})", R"({"do":"set","key":"on","to":true})"})
        EXPECT_EQ(error(lastReplyTo(moving + openFixture + set)), "the page is still moving");
}

TEST_F(ScriptSettings, NamesThePositionsOfRowsWithTheSameName) {
    installFixtureBundle();
    EXPECT_EQ(error(lastReplyTo(openFixture + R"({"do":"tap","row":"Grow"}
{"do":"tap","row":"Grow"}
{"do":"tap","row":"Grown"})")),
              "the page has 2 rows 'Grown': section 4 row 0, section 4 row 1");
}

TEST_F(ScriptSettings, RefusesLinesThatAreNotCommands) {
    EXPECT_EQ(error(lastReplyTo("[1]")), "a command must be an object");
    EXPECT_EQ(error(lastReplyTo("{}")), "missing member 'do'");
    EXPECT_EQ(error(lastReplyTo(R"({"do":7})")), "'do' must be a string");
    EXPECT_EQ(error(lastReplyTo(R"({"do":"tap"})")), "missing member 'row' or 'key'");
    EXPECT_EQ(error(lastReplyTo(R"({"do":"tap","row":-1,"section":0})")),
              "'row' must be an integer, 0 or more");
    EXPECT_EQ(error(lastReplyTo(R"({"do":"step","seconds":-1})")), "'seconds' must be from 0 to 1000000");
    EXPECT_EQ(error(lastReplyTo(R"({"do":"see","do":"see"})")), "the line is not JSON");
    EXPECT_EQ(error(lastReplyTo("{\"do\":\"\xFF\"}")), "the line is not JSON");
    EXPECT_EQ(error(lastReplyTo(std::string(200'000, '['))), "the line is not JSON");
}

TEST_F(ScriptSettings, RefusesATooLongLineAndContinues) {
    const auto replies = repliesTo(std::string(3'000'000, 'x') + "\n{\"do\":\"back\"}\n");
    ASSERT_EQ(replies.size(), 2U);
    EXPECT_EQ(error(replies[0]), "the line is longer than 1048576 bytes");
    EXPECT_EQ(error(replies[1]), "this is the first page");
}

TEST_F(ScriptSettings, SkipsBlankLinesAndRemarks) {
    EXPECT_TRUE(repliesTo("\n  \n# a remark\n\t# another\r\n").empty());
}

TEST_F(ScriptSettings, StoresTypedTextAtTheEndOfTheInput) {
    EXPECT_EQ(repliesTo(R"({"do":"tap","row":"Wardlock"}
{"do":"tap","row":"Default"}
{"do":"type","row":"Account Name","text":"Tom"})")
                  .size(),
              3U);
    EXPECT_NE(readFile(documentPath).find("<string>Tom</string>"), std::string::npos);
}

TEST_F(ScriptSettings, StoresOnATerminationSignal) {
    Conversation settings(folder() / "fifo");
    settings.say(R"({"do":"tap","row":"Wardlock"})");
    settings.say(R"({"do":"tap","row":"Default"})");
    settings.say(R"({"do":"type","row":"Account Name","text":"Tom"})");
    settings.process().send(SIGTERM);
    EXPECT_EQ(settings.process().wait().exitCode, 0);
    EXPECT_NE(readFile(documentPath).find("<string>Tom</string>"), std::string::npos);
}

TEST_F(ScriptSettings, FailsWithoutItsFile) {
    const ProcessResult result = wardlockCommand({"settings", "--script", "/nowhere/at/all"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "wardlock settings: cannot open /nowhere/at/all: No such file or directory\n");
}

TEST_F(ScriptSettings, EndsAfterItsRepliesWhenAPageFails) {
    installFixtureBundle();
    const ProcessResult result = runScript(openFixture + R"({"do":"tap","row":"Fail"}
{"do":"see"})");
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_EQ(result.output, "{\"ok\":true}\n");
}

TEST_F(ScriptSettings, WritesTheReportOfAFailedPageIntoTheLog) {
    // The handler that writes the report is installed by the bundle of this build.
    installFixtureBundle();
    const ProcessResult result = runScript(R"({"do":"tap","row":"Wardlock"}
{"do":"back"}
{"do":"tap","row":"Fixture"}
{"do":"tap","row":"Fail"})");
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_NE(readFile(logPath).find("Reason: the fixture fails when asked to"), std::string::npos);
}

TEST_F(ScriptSettings, GoesBackFromAnAccountThatAnotherProcessRemoved) {
    writeFile(documentPath, documentOf({"Ann", "Tom"}));
    Conversation settings(folder() / "fifo");
    settings.say(R"({"do":"tap","row":"Wardlock"})");
    settings.say(R"({"do":"tap","row":"Tom"})");
    writeFile(documentPath, documentOf({"Ann"}));
    EXPECT_EQ(settings.say(R"({"do":"tap","row":"Siri"})"), R"({"error":"the page is gone"})");
    const Json seen = Json::parse(settings.say(R"({"do":"see"})"));
    EXPECT_EQ(seen["page"]["title"], "Wardlock");
    EXPECT_EQ(seen["notice"], "Another program removed the account “Tom”.");
    EXPECT_EQ(readFile(documentPath), documentOf({"Ann"}));
    EXPECT_EQ(settings.say(R"({"do":"dismiss"})"), R"({"ok":true})");
    EXPECT_EQ(settings.say(R"({"do":"tap","row":"Ann"})"), R"({"ok":true})");
}

TEST_F(ScriptSettings, ShowsAnotherProcesssChange) {
    writeFile(documentPath, documentOf({"Ann"}));
    Conversation settings(folder() / "fifo");
    settings.say(R"({"do":"tap","row":"Wardlock"})");
    writeFile(documentPath, documentOf({"Ann", "Tom"}));
    EXPECT_EQ(wardlockCommand({"announce", "kAccounts"}).exitCode, 0);
    EXPECT_EQ(settings.say(R"({"do":"wait","for":"change"})"), R"({"ok":true})");
    EXPECT_EQ(settings.say(R"({"do":"tap","row":"Tom"})"), R"({"ok":true})");
    EXPECT_NE(settings.say(R"({"do":"posts"})").find(R"("own":false)"), std::string::npos);
}

/// The web page as the command shows it, with a server of the test's own in place of the web.
class ScriptWebPage : public ScriptSettings {
protected:
    ScriptWebPage() {
        environment.set("http_proxy", server.url(""));
        environment.unset("no_proxy");
        environment.unset("NO_PROXY");
        server.reply(listing, "<a href=/one>One</a> <a href='javascript:x'>no</a> <a href=/two>Two</a>");
        server.reply(host + "/one", "First");
        server.reply(host + "/two", "Second");
    }
    /// The web page after commands on it.
    static Json webAfter(const std::string& commands) {
        return lastReplyTo(open + commands + R"({"do":"see"})")["page"]["web"];
    }

    inline static const std::string host = "http://" WARDLOCK_REPOSITORY_HOST;
    inline static const std::string listing = host + "/packagesfordev.php?name=kitbay";
    inline static const std::string wait = R"({"do":"wait","for":"load"})"
                                           "\n";
    inline static const std::string open = R"({"do":"tap","row":"Wardlock"})"
                                           "\n"
                                           R"({"do":"tap","row":"More From Tavix"})"
                                           "\n" +
                                           wait;
    HttpServer server;
};

TEST_F(ScriptWebPage, ShowsTheTargetsOfLinks) {
    const Json web = webAfter("");
    EXPECT_EQ(web["url"], listing);
    EXPECT_EQ(web["text"], "One [1] no Two [2]\n");
    EXPECT_EQ(web["links"], Json::parse(R"([{"number":1,"text":"One","url":")" + host + R"(/one"},)" +
                                        R"({"number":2,"text":"Two","url":")" + host + R"(/two"}])"));
}

TEST_F(ScriptWebPage, FollowsALinkByNumberOrAddress) {
    EXPECT_EQ(webAfter("{\"do\":\"follow\",\"link\":2}\n" + wait)["text"], "Second\n");
    const Json web = webAfter(R"({"do":"follow","url":")" + host + "/one\"}\n" + wait);
    EXPECT_EQ(web["text"], "First\n");
    EXPECT_FALSE(web.contains("links"));
}

TEST_F(ScriptWebPage, FollowsOnlyLinksOfThePage) {
    const auto replies = repliesTo(open +
                                   R"({"do":"follow","link":0}
{"do":"follow","link":3}
{"do":"follow","link":1000000}
{"do":"follow","url":"http://other.example/"}
{"do":"follow","url":"javascript:x"}
{"do":"follow","url":""}
{"do":"follow","link":1,"url":"http://other.example/"}
{"do":"follow"}
{"do":"back"}
{"do":"follow","link":1}
)");
    std::vector<std::string> errors;
    for (std::size_t i = 3; i < replies.size(); ++i)
        errors.push_back(error(replies[i]));
    const std::string none = "the web page has no such link";
    EXPECT_EQ(errors, (std::vector<std::string>{none, none, none, none, none, none, "unknown member 'url'",
                                                "missing member 'url'", "", "the page shows no web page"}));
    EXPECT_EQ(server.requests(), (std::vector{listing.substr(host.size())}));
}

TEST_F(ScriptSettings, SavesTheSupportMailInTheOutbox) {
    makeFolder("/var/mobile/Library/Mail/Outbox");
    writeFile("/tmp/dpkgl.log", "packages");
    ProcessSetup setup = with("DISPLAY", "");
    setup.environment["WAYLAND_DISPLAY"] = std::nullopt;
    setup.input = R"({"do":"tap","row":"Wardlock"}
{"do":"tap","row":"support@tavix.example"}
{"do":"mail","subject":"Hilfe für Tom","remove":"nothing"}
{"do":"mail","body":"Hallo\nTom","press":"send"}
{"do":"wait","for":"mail"}
{"do":"see"})";
    const ProcessResult result = wardlockCommand({"settings", "--script", "-"}, setup);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.output.find(R"({"error":"the mail has no such attachment"})"), std::string::npos);
    EXPECT_NE(result.output.find(R"("notice":"The mail was saved as )"), std::string::npos) << result.output;
    std::vector<std::filesystem::path> mails;
    for (const auto& entry : std::filesystem::directory_iterator(onDisk("/var/mobile/Library/Mail/Outbox")))
        mails.push_back(entry.path());
    ASSERT_EQ(mails.size(), 1U);
    EXPECT_EQ(mails[0].extension(), ".eml");
}

} // namespace
} // namespace wardlock::test
