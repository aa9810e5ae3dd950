#include "platform/plist/PropertyList.h"
#include "tests/unit/cli/VerbsFixture.h"

#include <filesystem>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::Value;

/// Verbs whose FILE is another name of standard input or output, or of an open descriptor.
class StreamOperand : public VerbsFixture {
protected:
    const std::string list = platform::dataWithPropertyList(Dictionary{{kPasscode, "1234"}});

    /// Runs the words in a shell, which can redirect what the command inherits.
    static ProcessResult shell(const std::string& words, const std::string& input = "") {
        ProcessSetup setup;
        setup.input = input;
        return runProcess("/bin/sh", {"-c", words, command}, setup);
    }
};

TEST_F(StreamOperand, IsReadThroughTheNamesOfStandardInput) {
    for (const char* name : {"/dev/stdin", "/dev/fd/0", "/proc/self/fd/0"}) {
        write(document());
        const ProcessResult result = run({"import", name}, list);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_EQ(*stored().find(kPasscode), Value("1234")) << name;
    }
    EXPECT_EQ(run({"plist", "lint", "/dev/stdin"}, list).output, "/dev/stdin: OK\n");
}

TEST_F(StreamOperand, IsReadFromAnInheritedDescriptor) {
    const ProcessResult result = shell("\"$0\" plist lint /dev/fd/3 3<&0 </dev/null", list);
    EXPECT_EQ(result.output, "/dev/fd/3: OK\n") << result.errors;
}

TEST_F(StreamOperand, IsReadFromAnOpenFileThatWasRemoved) {
    writeFile("/tmp/gone.plist", list);
    const std::string path = onDisk("/tmp/gone.plist");
    const ProcessResult result =
        shell("exec <'" + path + "'; rm '" + path + "'; \"$0\" plist lint /dev/stdin");
    EXPECT_EQ(result.output, "/dev/stdin: OK\n") << result.errors;
}

TEST_F(StreamOperand, IsReadFromAProcessOfTheShell) {
    ProcessSetup setup;
    setup.input = list;
    const ProcessResult result =
        runProcess("/bin/bash", {"-c", "exec 3<&0; \"$0\" plist lint <(cat <&3)", command}, setup);
    EXPECT_EQ(result.exitCode, 0) << result.output << result.errors;
}

TEST_F(StreamOperand, IsWrittenAsStandardOutput) {
    for (const char* name : {"/dev/stdout", "/dev/fd/1"}) {
        const ProcessResult result = run({"plist", "convert", "-", "-o", name}, list);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_EQ(result.output, list) << name;
    }
}

TEST_F(StreamOperand, IsNamedInTheErrorWhenItIsNotOpen) {
    expectRefuses({"import", "/dev/fd/87"}, 1, "import: cannot read /dev/fd/87: Bad file descriptor");
    expectRefuses({"export", "/dev/fd/87"}, 1, "export: cannot write /dev/fd/87: Bad file descriptor");
}

TEST_F(StreamOperand, IsReadToTheBoundWhenItHasNoEnd) {
    const ProcessResult result = shell("\"$0\" import /dev/stdin </dev/zero");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "wardlock import: cannot read /dev/stdin: larger than 16 MiB\n");
}

TEST_F(StreamOperand, IsChangedFromStandardInputToStandardOutput) {
    const ProcessResult result = run({"plist", "set", "/dev/stdin", "kPasscode", "string", "5678"}, list);
    EXPECT_EQ(result.output, platform::dataWithPropertyList(Dictionary{{kPasscode, "5678"}}))
        << result.errors;
}

TEST_F(StreamOperand, IsNotChangedInPlace) {
    const ProcessResult result = shell("\"$0\" plist set /dev/fd/3 key int 7 3<&0", list);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors,
              "wardlock plist set: cannot change /dev/fd/3: not a file that can be replaced\n");
}

TEST_F(StreamOperand, IsRefusedAsAPipeWithANameWhichMayHaveNoOtherEnd) {
    const std::string pipe = folder() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string why = pipe + ": not a regular file; ";
    expectRefuses({"import", pipe}, 1, "import: cannot read " + why + "\"-\" reads standard input");
    expectRefuses({"export", pipe}, 1, "export: cannot write " + why + "\"-\" prints");
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

} // namespace
} // namespace wardlock::test
