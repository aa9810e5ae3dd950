#include "cli/io/Json.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/system/documentation/Page.h"

#include <nlohmann/json.hpp>
#include <sstream>

namespace wardlock::test {
namespace {

/// A conversation with the script face: what is sent, behind "> ", and what is answered, behind "< ".
struct Conversation {
    std::string sent;
    std::vector<std::string> answers;
};

Conversation conversationOf(const Page& page, const Block& block) {
    Conversation conversation;
    for (const std::string& line : block.lines) {
        if (line.starts_with("> "))
            conversation.sent += line.substr(2) + '\n';
        else if (line.starts_with("< "))
            conversation.answers.push_back(line.substr(2));
        else
            ADD_FAILURE() << page.place(block.line) << ": neither sent nor answered: " << line;
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
        std::string answer;
        for (const auto& expected : conversation.answers) {
            ASSERT_TRUE(std::getline(output, answer)) << "no answer where there should be " << expected;
            EXPECT_EQ(cli::parseJson(answer), cli::parseJson(expected)) << answer << "\n  instead of\n"
                                                                        << expected;
        }
        EXPECT_FALSE(std::getline(output, answer)) << "one answer too many: " << answer;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryPage, ScriptExamples, ::testing::ValuesIn(pagesWith("script")),
                         [](const auto& info) { return nameOf(info.param); });

} // namespace
} // namespace wardlock::test
