#include "cli/io/Json.h"
#include "tests/support/BusFixture.h"
#include "tests/unit/cli/CommandFixture.h"

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace wardlock::test {
namespace {

/// The command on a system whose libcurl cannot be loaded.
class MissingWebLibrary : public BusFixture {
protected:
    MissingWebLibrary() {
        const std::string libraries = folder() / "libraries";
        std::filesystem::create_directory(libraries);
        std::ofstream(libraries + "/libcurl.so.4") << "not a library";
        setup.environment["LD_LIBRARY_PATH"] = libraries;
    }

    ProcessSetup setup;
};

TEST_F(MissingWebLibrary, LeavesTheWebPageWithoutTextAndIsLogged) {
    setup.input = R"({"do":"tap","row":"Wardlock"})"
                  "\n"
                  R"({"do":"tap","row":"More From Tavix"})"
                  "\n"
                  R"({"do":"wait","for":"load"})"
                  "\n"
                  R"({"do":"see"})"
                  "\n";
    const ProcessResult result = wardlockCommand({"settings", "--script", "-"}, setup);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    std::istringstream lines(result.output);
    cli::Json picture;
    for (std::string line; std::getline(lines, line);) {
        const auto reply = cli::parseJson(line);
        ASSERT_TRUE(reply) << line;
        EXPECT_EQ((*reply)["ok"], true) << line;
        picture = *reply;
    }
    EXPECT_EQ(picture["page"]["title"], "Other Tweaks");
    EXPECT_EQ(picture["page"]["web"].value("text", ""), "");
    const std::string log = readFile(logPath);
    EXPECT_NE(log.find("Web pages cannot be fetched: "), std::string::npos) << log;
    EXPECT_NE(log.find("libcurl.so.4"), std::string::npos) << log;
}

TEST_F(MissingWebLibrary, LeavesEveryOtherCommandAsItIs) {
    EXPECT_EQ(wardlockCommand({"--version"}, setup).exitCode, 0);
    EXPECT_EQ(wardlockCommand({"account", "add", "Ben"}, setup).exitCode, 0);
    EXPECT_NE(wardlockCommand({"accounts"}, setup).output.find("Ben"), std::string::npos);
    EXPECT_FALSE(exists(logPath));
}

} // namespace
} // namespace wardlock::test
