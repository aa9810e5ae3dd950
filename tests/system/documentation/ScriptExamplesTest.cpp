#include "cli/io/Json.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/system/documentation/Page.h"

#include <nlohmann/json.hpp>
#include <sstream>

namespace wardlock::test {
namespace {

/// A conversation with the script front end: what is sent, behind "> ", and the replies, behind "< ".
struct Conversation {
    std::string sent;
    std::vector<std::string> replies;
};

Conversation conversationOf(const Page& page, const Block& block) {
    Conversation conversation;
    for (const std::string& line : block.lines) {
        if (line.starts_with("> "))
            conversation.sent += line.substr(2) + '\n';
        else if (line.starts_with("< "))
            conversation.replies.push_back(line.substr(2));
        else
            ADD_FAILURE() << page.place(block.line) << ": neither a command nor a reply: " << line;
    }
    return conversation;
}

class ScriptExamples : public BusFixture, public ::testing::WithParamInterface<std::string> {};

TEST_P(ScriptExamples, GetTheRepliesThatThePageShows) {
    const Page page(GetParam());
    for (const Block& block : page.blocks()) {
        if (block.language != "script")
            continue;
        SCOPED_TRACE(page.place(block.line));
        const Conversation conversation = conversationOf(page, block);
        const std::string device = folder() / ("device" + std::to_string(block.line));
        ProcessSetup setup = with("WARDLOCK_DEVICE_ROOT", device);
        setup.input = conversation.sent;
        const ProcessResult result =
            runProcess(programFolder() + "/wardlock", {"settings", "--script", "-"}, setup);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.errors, "");
        std::istringstream output(result.output);
        std::string reply;
        for (const auto& expected : conversation.replies) {
            ASSERT_TRUE(std::getline(output, reply)) << "no reply instead of " << expected;
            EXPECT_EQ(cli::parseJson(reply), cli::parseJson(expected)) << reply << "\n  instead of\n"
                                                                       << expected;
        }
        EXPECT_FALSE(std::getline(output, reply)) << "one reply too many: " << reply;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryPage, ScriptExamples, ::testing::ValuesIn(pagesWith("script")),
                         [](const auto& info) { return nameOf(info.param); });

} // namespace
} // namespace wardlock::test
