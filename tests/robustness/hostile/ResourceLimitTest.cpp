// A command that runs out of what the system gives a process: room in a file, descriptors, a reader of its
// output. It reports that, and the document is the old or the new one.

#include "platform/plist/PropertyListFile.h"
#include "settings/Settings.h"
#include "tests/robustness/hostile/HostileFixture.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"
#include "tests/support/doubles/RecordingNotificationCenter.h"

#include <algorithm>
#include <filesystem>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

/// Switches the restrictions off on Wardlock's page.
constexpr const char* script = R"({"do":"tap","row":"Wardlock"}
{"do":"tap","row":"Enabled"}
{"do":"see"}
)";

// From too few for the system's loader to enough for everything.
constexpr int fewest = 4;
constexpr int most = 16;

// Room for what a sanitizer writes for itself, but not for the large document. A build that counts its lines
// cannot write its counts either, and reports that elsewhere. The unit is 512 bytes.
constexpr const char* littleRoom = "export GCOV_ERROR_FILE=/dev/null; ulimit -f 2048";
constexpr std::size_t largeSize = 3 << 20;

class ResourceLimit : public HostileFixture {
protected:
    ResourceLimit() {
        SettingsNew();
        before_ = readFile(documentPath);
    }

    /// Adds a key with more bytes than `littleRoom` leaves for a file.
    void makeDocumentLarge() {
        const auto update = platform::updateFile(documentPath, [](platform::MutableDictionary& document) {
            document.set("kNote", std::string(largeSize, 'x'));
            return true;
        });
        ASSERT_TRUE(update.written);
        before_ = readFile(documentPath);
    }
    /// The command with what a shell does before it: "ulimit -n 7", "exec <&-".
    static ProcessResult run(const std::string& before, const Words& words, const std::string& input = {}) {
        Words all{"-c", before + R"(; exec "$0" "$@")", programFolder() + "/wardlock"};
        all.insert(all.end(), words.begin(), words.end());
        ProcessSetup setup;
        setup.input = input;
        return runProcess("/bin/sh", all, setup);
    }
    Words setEnabled() const { return {"plist", "set", onDisk(documentPath), "kEnabled", "bool", "false"}; }

    static bool isOneLine(const std::string& text) {
        return std::ranges::count(text, '\n') == 1 && text.ends_with('\n') && text.size() > 1;
    }
    /// It did what it was to do, or reported in one line why not; no signal ended it.
    static testing::AssertionResult endsOrderly(const ProcessResult& result) {
        const bool did = result.exitCode == 0 && result.errors.empty();
        const bool reported = result.exitCode == 1 && isOneLine(result.errors);
        // With very few descriptors the system's loader reports it.
        const bool notBegun = result.exitCode == 127 && isOneLine(result.errors);
        return did || reported || notBegun ? testing::AssertionSuccess()
                                           : testing::AssertionFailure()
                                                 << "exit code " << result.exitCode << ", signal "
                                                 << result.signal << ": " << result.errors;
    }
    testing::AssertionResult documentIsAsBefore() const {
        return readFile(documentPath) == before_ ? testing::AssertionSuccess()
                                                 : testing::AssertionFailure() << readFile(documentPath);
    }
    bool documentIsDisabled() const {
        const auto document = platform::dictionaryWithContentsOfFile(documentPath);
        const platform::Value* value = document ? document->find("kEnabled") : nullptr;
        return document && document->size() == 3 && value && !value->boolean();
    }
    /// Neither a temporary nor a kept copy is beside the document; the folder of its versions may.
    bool documentIsAlone() const {
        const fs::directory_iterator all(onDisk(documentFolder));
        return std::count_if(begin(all), end(all),
                             [](const auto& entry) { return entry.path().extension() != ".history"; }) == 1;
    }

    RecordingNotificationCenter center;

private:
    std::string before_;
};

TEST_F(ResourceLimit, FailsAWriteWithTheReasonWhenFilesAreLimited) {
    makeDocumentLarge();
    const ProcessResult result = run(littleRoom, setEnabled());
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(isOneLine(result.errors)) << result.errors;
    EXPECT_TRUE(result.errors.starts_with("wardlock plist set: cannot write ")) << result.errors;
    EXPECT_TRUE(result.errors.ends_with(": File too large\n")) << result.errors;
    EXPECT_TRUE(documentIsAsBefore());
    EXPECT_TRUE(documentIsAlone());
}

TEST_F(ResourceLimit, LeavesSettingsRunningAndTheDocumentWholeWhenFilesAreLimited) {
    makeDocumentLarge();
    const ProcessResult result = run(littleRoom, {"settings", "--script", "-"}, script);
    EXPECT_EQ(result.signal, 0) << result.errors;
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_GE(std::ranges::count(result.output, '\n'), 3) << result.output;
    EXPECT_TRUE(documentIsAsBefore());
    EXPECT_TRUE(documentIsAlone());
}

TEST_F(ResourceLimit, FailsTheOutputWhenFilesAreLimited) {
    const std::string output = folder() / "output";
    const ProcessResult result = run("export GCOV_ERROR_FILE=/dev/null; ulimit -f 1; exec >'" + output + "'",
                                     {"plist", "dump", onDisk(documentPath)});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "wardlock plist dump: cannot write the output: File too large\n");
}

TEST_F(ResourceLimit, FailsAReadOrLeavesItRightWhenDescriptorsAreLimited) {
    const Words dump{"plist", "dump", onDisk(documentPath)};
    const ProcessResult status = run("true", {"status"});
    const ProcessResult dumped = run("true", dump);
    for (int descriptors = fewest; descriptors <= most; ++descriptors) {
        const std::string limit = "ulimit -n " + std::to_string(descriptors);
        const ProcessResult read = run(limit, dump);
        EXPECT_TRUE(endsOrderly(read)) << descriptors;
        EXPECT_TRUE(read.exitCode != 0 || read.output == dumped.output) << descriptors;
        // The defaults take the place of what cannot be read; they never reach the disk.
        EXPECT_TRUE(endsOrderly(run(limit, {"status"}))) << descriptors;
        ASSERT_TRUE(documentIsAsBefore()) << descriptors;
    }
    EXPECT_EQ(run("ulimit -n 64", {"status"}).output, status.output);
}

TEST_F(ResourceLimit, EndsNoDoctorByASignalWhenDescriptorsAreLimited) {
    for (const int descriptors : {5, 6, 8, 10, 12}) {
        const ProcessResult result = run("ulimit -n " + std::to_string(descriptors), {"doctor"});
        EXPECT_EQ(result.signal, 0) << descriptors << result.errors;
        ASSERT_TRUE(documentIsAsBefore()) << descriptors;
    }
}

TEST_F(ResourceLimit, LeavesTheOldOrTheNewDocumentWhenDescriptorsAreLimited) {
    bool failed = false;
    bool done = false;
    for (int descriptors = fewest; descriptors <= most; ++descriptors) {
        const ProcessResult result = run("ulimit -n " + std::to_string(descriptors), setEnabled());
        EXPECT_TRUE(endsOrderly(result)) << descriptors;
        (result.exitCode == 0 ? done : failed) = true;
        EXPECT_TRUE(result.exitCode == 0 ? documentIsDisabled() : bool(documentIsAsBefore())) << descriptors;
        EXPECT_TRUE(documentIsAlone()) << descriptors;
        removeFile(documentPath);
        SettingsNew();
    }
    EXPECT_TRUE(failed && done) << "or the sweep began or ended at the wrong place";
}

TEST_F(ResourceLimit, EndsNoSettingsByASignalWhenDescriptorsAreLimited) {
    for (int descriptors = fewest; descriptors <= most; ++descriptors) {
        const ProcessResult result =
            run("ulimit -n " + std::to_string(descriptors), {"settings", "--script", "-"}, script);
        EXPECT_EQ(result.signal, 0) << descriptors << ": " << result.errors;
        EXPECT_TRUE(result.exitCode == 0 || !result.errors.empty()) << descriptors;
        EXPECT_TRUE(documentIsDisabled() || documentIsAsBefore()) << descriptors;
        removeFile(documentPath);
        SettingsNew();
    }
}

TEST_F(ResourceLimit, KeepsTheDocumentWhenStandardStreamsAreClosed) {
    for (const char* closed : {"<&-", ">&-", "2>&-", "<&- >&-", "<&- 2>&-", ">&- 2>&-", "<&- >&- 2>&-"}) {
        const ProcessResult result = run(std::string("exec ") + closed, setEnabled());
        EXPECT_EQ(result.exitCode, 0) << closed << result.errors;
        EXPECT_TRUE(documentIsDisabled()) << closed;
        EXPECT_TRUE(documentIsAlone()) << closed;
        removeFile(documentPath);
        SettingsNew();
        const bool isReported =
            std::string(closed).find(">&-") != 0 && std::string(closed).find(" >&-") == std::string::npos;
        EXPECT_EQ(run(std::string("exec ") + closed, {"status"}).exitCode, isReported ? 0 : 1) << closed;
        ASSERT_TRUE(documentIsAsBefore()) << closed;
    }
}

TEST_F(ResourceLimit, EndsTerminalAndScriptWithoutASignalWhenStreamsAreClosed) {
    for (const Words& words : {Words{"settings", "--script", "-"}, Words{"settings", "--terminal"}})
        for (const char* closed : {"<&-", ">&-", "2>&-", "<&- >&- 2>&-"}) {
            const ProcessResult result = run(std::string("exec ") + closed, words, "q\n");
            EXPECT_EQ(result.signal, 0) << words.back() << closed;
            EXPECT_TRUE(documentIsAsBefore()) << words.back() << closed;
        }
}

TEST_F(ResourceLimit, EndsACommandQuietlyWhenItsPipeHasNoReader) {
    for (const Words& words : {Words{"status"}, Words{"plist", "dump", onDisk(documentPath)}}) {
        ProcessSetup setup;
        Words all{"-c", R"({ "$0" "$@"; echo "code $?" >&2; } | true)", programFolder() + "/wardlock"};
        all.insert(all.end(), words.begin(), words.end());
        // The reader may be gone before or after the write.
        const std::string errors = runProcess("/bin/sh", all, setup).errors;
        EXPECT_TRUE(errors == "code 0\n" || errors == "code 1\n") << errors;
    }
}

} // namespace
} // namespace wardlock::test
