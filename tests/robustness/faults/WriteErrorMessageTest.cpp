// A command that cannot store a value reports it in one line, with the reason of the system.

#include "tests/robustness/faults/Journal.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/Process.h"

#include <cerrno>
#include <cstdlib>

namespace wardlock::test {
namespace {

constexpr const char* list = "/lists/a.plist";

class WriteErrorMessage : public DeviceRootFixture {
protected:
    WriteErrorMessage() {
        writeFile(list, "<plist><dict/></plist>");
        setup_.environment["LD_PRELOAD"] = testModulesFolder() + "/faults-shim.so";
        setup_.environment["WARDLOCK_FAULTS_BELOW"] = onDisk("/lists");
        setup_.environment["WARDLOCK_FAULTS_PLAN"] = onDisk("/plan");
        setup_.environment["WARDLOCK_FAULTS_JOURNAL"] = journal();
        // The sanitizer's library wants to be the first; the shim leads to it.
        const char* options = std::getenv("ASAN_OPTIONS");
        setup_.environment["ASAN_OPTIONS"] =
            (options ? options + std::string(":") : "") + "verify_asan_link_order=0";
    }

    std::string journal() const { return onDisk("/journal"); }
    ProcessResult set(const std::string& plan) const {
        writeFile("/plan", plan);
        return runProcess(programFolder() + "/wardlock",
                          {"plist", "set", onDisk(list), "kEnabled", "bool", "true"}, setup_);
    }
    std::string messageWith(const std::string& reason) const {
        return "wardlock plist set: cannot write " + onDisk(list) + ": " + reason + "\n";
    }

private:
    ProcessSetup setup_;
};

TEST_F(WriteErrorMessage, NamesAFullDisk) {
    const ProcessResult result = set("fill 1-");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, messageWith("No space left on device"));
    EXPECT_EQ(readFile(list), "<plist><dict/></plist>");
}

TEST_F(WriteErrorMessage, NamesTheErrorOfEveryCallThatTheWriteNeeds) {
    ASSERT_EQ(set("record").exitCode, 0);
    std::size_t refused = 0;
    const Journal calls = Journal::read(journal());
    for (const JournalEntry& call : calls.entries()) {
        if (!call.changes())
            continue;
        writeFile(list, "<plist><dict/></plist>");
        const ProcessResult result = set("fail " + std::to_string(call.number) + " " + std::to_string(EROFS));
        // The folder's own sync follows the rename: the new list is in place, but its failure is
        // reported all the same.
        EXPECT_EQ(result.exitCode, 1) << call.function;
        EXPECT_EQ(result.errors, messageWith("Read-only file system")) << call.function;
        ++refused;
    }
    EXPECT_GE(refused, 4U) << "a file is made, written, synced and renamed";
}

} // namespace
} // namespace wardlock::test
