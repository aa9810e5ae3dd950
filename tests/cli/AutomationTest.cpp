#include "cli/Json.h"
#include "tests/cli/CommandFixture.h"
#include "tests/support/BusFixture.h"
#include "tests/support/Places.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace wardlock::test {
namespace {

/// One example of docs/automation.md: what is sent and what is answered.
struct Example {
    std::size_t line = 0;
    std::string sent;
    std::vector<std::string> answers;
};

std::vector<Example> examplesOf(const std::string& file) {
    std::vector<Example> examples;
    std::ifstream document(file);
    bool inside = false;
    std::string line;
    for (std::size_t number = 1; std::getline(document, line); ++number) {
        if (line == "```script")
            examples.push_back({number, "", {}});
        if (line.starts_with("```"))
            inside = line == "```script";
        else if (inside && line.starts_with("> "))
            examples.back().sent += line.substr(2) + '\n';
        else if (inside && line.starts_with("< "))
            examples.back().answers.push_back(line.substr(2));
        else if (inside)
            ADD_FAILURE() << file << ':' << number << " is neither sent nor answered";
    }
    return examples;
}

class Automation : public BusFixture {};

TEST_F(Automation, AnswersAsItsDocumentSays) {
    const auto examples = examplesOf(sourceFolder() + "/docs/automation.md");
    ASSERT_GE(examples.size(), 5U);
    for (const auto& example : examples) {
        SCOPED_TRACE("docs/automation.md:" + std::to_string(example.line));
        const std::string device = folder() / ("device" + std::to_string(example.line));
        ProcessSetup setup = with("WARDLOCK_DEVICE_ROOT", device);
        setup.input = example.sent;
        const ProcessResult result = wardlockCommand({"settings", "--script", "-"}, setup);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.errors, "");
        std::istringstream output(result.output);
        std::string answer;
        for (const auto& expected : example.answers) {
            ASSERT_TRUE(std::getline(output, answer)) << "no answer where there should be " << expected;
            EXPECT_EQ(cli::parseJson(answer), cli::parseJson(expected)) << answer << "\n  instead of\n"
                                                                        << expected;
        }
        EXPECT_FALSE(std::getline(output, answer)) << "one answer too many: " << answer;
    }
}

} // namespace
} // namespace wardlock::test
