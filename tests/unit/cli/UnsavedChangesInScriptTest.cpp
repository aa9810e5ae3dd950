#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/support/Process.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

/// Scripts whose changes do not fit on the disk: the system refuses every byte of a file.
class UnsavedChangesInScript : public BusFixture {
protected:
    UnsavedChangesInScript() {
        EXPECT_EQ(runProcess(programFolder() + "/wardlock", {"settings", "--script", "/dev/null"}).exitCode,
                  0);
    }
    static ProcessResult run(const std::string& script) {
        ProcessSetup setup;
        setup.input = script;
        return runProcess("/bin/sh",
                          {"-c", "export GCOV_ERROR_FILE=/dev/null; ulimit -f 0; exec '" + programFolder() +
                                     "/wardlock' settings --script -"},
                          setup);
    }
};

TEST_F(UnsavedChangesInScript, AreReportedInTheReplyAndInTheNotice) {
    const auto result = run("{\"do\":\"tap\",\"row\":\"Wardlock\"}\n"
                            "{\"do\":\"tap\",\"row\":\"Enabled\",\"id\":1}\n"
                            "{\"do\":\"see\"}\n");
    EXPECT_NE(result.output.find("{\"id\":1,\"ok\":true,\"unsaved\":\"file too large\"}\n"),
              std::string::npos)
        << result.output;
    EXPECT_NE(result.output.find("\"notice\":\"Your change could not be saved: file too large.\""),
              std::string::npos)
        << result.output;
    EXPECT_NE(result.output.find("\"label\":\"Enabled\",\"key\":\"kEnabled\",\"on\":true"), std::string::npos)
        << result.output;
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(UnsavedChangesInScript, AreReportedOnceAtTheStart) {
    EXPECT_EQ(run("").errors, "wardlock settings: cannot write to folder " +
                                  onDisk("/var/mobile/Library/Preferences") + ": File too large\n");
}

TEST_F(UnsavedChangesInScript, FailAScriptThatEndsWhileTextIsTyped) {
    const auto result = run("{\"do\":\"tap\",\"row\":\"Wardlock\"}\n"
                            "{\"do\":\"tap\",\"row\":\"Default\"}\n"
                            "{\"do\":\"type\",\"row\":\"Account Name\",\"text\":\"Tom\"}\n");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find("Your change could not be saved: file too large."), std::string::npos)
        << result.errors;
}

} // namespace
} // namespace wardlock::test
