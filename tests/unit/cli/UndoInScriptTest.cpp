#include "cli/io/Json.h"
#include "tests/support/BusFixture.h"
#include "tests/unit/cli/Conversation.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace wardlock::test {
namespace {

using cli::Json;

/// Scripts that take their changes back, while other commands change the settings too.
class UndoInScript : public BusFixture {
protected:
    UndoInScript() { EXPECT_EQ(wardlockCommand({"account", "add", "Ann"}).exitCode, 0); }

    Json say(const std::string& line) {
        const auto reply = cli::parseJson(script_.say(line));
        EXPECT_TRUE(reply) << line;
        return reply.value_or(Json());
    }
    void open(const std::string& name) {
        say(R"({"do":"tap","row":"Wardlock"})");
        say(R"({"do":"tap","row":")" + name + "\"}");
    }
    void deleteAnn() {
        open("Ann");
        say(R"({"do":"tap","row":"Delete Account"})");
        say(R"({"do":"choose","action":"Delete"})");
    }
    /// Another process.
    static void set(const std::vector<std::string>& words) {
        const ProcessResult result = wardlockCommand(words);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
    }

private:
    Conversation script_{folder().path() + "/script"};
};

TEST_F(UndoInScript, TakesAChangeBackAndMakesItAgain) {
    const std::string before = readFile(documentPath);
    open("Ann");
    say(R"({"do":"tap","row":"Siri"})");
    const std::string after = readFile(documentPath);
    EXPECT_NE(after, before);
    EXPECT_EQ(say(R"({"do":"undo"})"), Json::parse(R"({"ok":true})"));
    EXPECT_EQ(readFile(documentPath), before);
    EXPECT_EQ(say(R"({"do":"redo"})"), Json::parse(R"({"ok":true})"));
    EXPECT_EQ(readFile(documentPath), after);
    EXPECT_EQ(say(R"({"do":"redo"})"), Json::parse(R"({"error":"there is nothing to redo"})"));
}

TEST_F(UndoInScript, LeavesTheChangesOfOtherProcessesAndOfEarlierRuns) {
    set({"set", "--account", "Ann", "Video", "on"});
    EXPECT_EQ(say(R"({"do":"undo"})")["error"], "there is nothing to undo");
    open("Ann");
    say(R"({"do":"tap","row":"Siri"})");
    set({"set", "--account", "Ann", "Camera", "on"});
    say(R"({"do":"undo"})");
    EXPECT_EQ(say(R"({"do":"undo"})")["error"], "there is nothing to undo");
    EXPECT_EQ(wardlockCommand({"get", "--account", "Ann", "Siri"}).output, "false\n");
    EXPECT_EQ(wardlockCommand({"get", "--account", "Ann", "Video"}).output, "true\n");
    EXPECT_EQ(wardlockCommand({"get", "--account", "Ann", "Camera"}).output, "true\n");
}

TEST_F(UndoInScript, IsRefusedWhereAnotherProcessesChangeWouldBeLost) {
    open("Ann");
    say(R"({"do":"type","row":"Account Name","text":"Anna"})");
    say(R"({"do":"return"})");
    set({"account", "rename", "Anna", "Annabel"});
    const std::string before = readFile(documentPath);
    say(R"({"do":"wait","for":"change"})");
    EXPECT_EQ(say(R"({"do":"undo"})")["error"],
              "a later change would be lost: Ann: Account Name was changed again");
    EXPECT_EQ(say(R"({"do":"see"})")["notice"], "Cannot undo: Ann: Account Name was changed again.");
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(UndoInScript, SeesTheOfferAfterADeletionForTenSeconds) {
    deleteAnn();
    EXPECT_EQ(say(R"({"do":"see"})")["offer"], Json::parse(R"({"text":"Ann was deleted","action":"undo"})"));
    say(R"({"do":"step","seconds":10})");
    EXPECT_FALSE(say(R"({"do":"see"})").contains("offer"));
}

TEST_F(UndoInScript, AnnouncesTheReturningAccountAsANewOne) {
    deleteAnn();
    say(R"({"do":"posts"})");
    say(R"({"do":"undo"})");
    const Json posts = say(R"({"do":"posts"})")["posts"];
    ASSERT_EQ(posts.size(), 1U);
    EXPECT_EQ(posts[0]["key"], "kAccounts");
    EXPECT_NE(posts[0]["object"].dump().find(R"(["kAccountName",{"string":"Ann"}])"), std::string::npos)
        << posts[0];
    EXPECT_EQ(posts[0]["own"], true);
    EXPECT_EQ(say(R"({"do":"see"})")["page"]["title"], "Wardlock");
}

} // namespace
} // namespace wardlock::test
