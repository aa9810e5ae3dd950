// How what the command prints reaches its reader: a terminal, a pipe, a pipe that does not block.

#include "tests/support/TerminalProcess.h"
#include "tests/support/TestTimeout.h"
#include "tests/unit/cli/CommandFixture.h"

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <unistd.h>

namespace wardlock::test {
namespace {

/// A text that changes the terminal's title and colours, in the C1 form too, and one that a terminal only
/// shows.
constexpr const char* wicked = "\x1B]0;title\x07\u009B31mred\x7F";
constexpr const char* wickedEscaped = R"(\x1b]0;title\x07\xc2\x9b31mred\x7f)";

class Output : public DeviceRootFixture {
protected:
    /// The document with one more key, whose value is the text.
    void storeText(const std::string& key, const std::string& text) const {
        const ProcessResult result =
            wardlockCommand({"plist", "set", onDisk(documentPath), key, "string", text});
        ASSERT_EQ(result.exitCode, 0) << result.errors;
    }
    /// What a terminal is sent.
    static std::string shown(const std::vector<std::string>& words) {
        TerminalProcess terminal(command, words);
        terminal.wait();
        return terminal.output();
    }
};

TEST_F(Output, ShowsATerminalControlCharactersOfAValueAsEscapes) {
    storeText("kMine", wicked);
    EXPECT_EQ(shown({"get", "kMine"}), std::string(wickedEscaped) + "\r\n");
}

TEST_F(Output, ShowsATerminalTheLinesOfAValue) {
    storeText("kMine", "one\n\ttwo");
    EXPECT_EQ(shown({"get", "kMine"}).substr(0, 5), "one\r\n");
}

TEST_F(Output, GivesAPipeTheBytesOfAValueAsTheyAre) {
    storeText("kMine", wicked);
    EXPECT_EQ(wardlockCommand({"get", "kMine"}).output, std::string(wicked) + '\n');
}

TEST_F(Output, PrintsJsonWithoutTerminalControls) {
    // JSON leaves these two as they are.
    storeText("kMine", "\u009B31m\x7F");
    EXPECT_EQ(shown({"get", "--json", "kMine"}), R"("\u009b31m\u007f")"
                                                 "\r\n");
    EXPECT_EQ(wardlockCommand({"get", "--json", "kMine"}).output, R"("\u009b31m\u007f")"
                                                                  "\n");
    EXPECT_EQ(shown({"plist", "dump", onDisk(documentPath)}).find("\u009B"), std::string::npos);
}

TEST_F(Output, ShowsATerminalFileNamesAsEscapes) {
    const std::string path = onDisk("/tmp/") + wicked;
    EXPECT_EQ(shown({"plist", "lint", path}),
              onDisk("/tmp/") + wickedEscaped + ": No such file or directory\r\n");
}

TEST_F(Output, ReportsAFailureInOneLineWhateverTheArguments) {
    const ProcessResult result = wardlockCommand({"get", std::string("a\nb\xFF") + wicked});
    EXPECT_EQ(result.errors, std::string("wardlock get: no setting 'a\\x0ab\\xff") + wickedEscaped + "'\n");
}

/// Everything that comes out of a pipe.
std::string readToEnd(int end) {
    std::string all;
    std::array<char, 4096> room{};
    for (pollfd watched{end, POLLIN, 0}; poll(&watched, 1, testTimeoutMilliseconds) > 0;) {
        const ssize_t count = read(end, room.data(), room.size());
        if (count <= 0)
            return all;
        all.append(room.data(), static_cast<std::size_t>(count));
    }
    ADD_FAILURE() << "the pipe was not closed";
    return all;
}

TEST_F(Output, WaitsForTheReaderOfAPipeThatDoesNotBlock) {
    const std::string text(1'000'000, 'x');
    writeFile("/tmp/long.plist", xml("<string>" + text + "</string>"));
    // As a program leaves it that makes its pipes non-blocking and then hands one to its child.
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    ASSERT_EQ(fcntl(ends[0], F_SETFD, FD_CLOEXEC), 0);
    ASSERT_EQ(fcntl(ends[1], F_SETFL, O_NONBLOCK), 0);
    Process process("/bin/sh", {"-c", "exec \"$0\" plist dump \"$1\" >&" + std::to_string(ends[1]), command,
                                onDisk("/tmp/long.plist")});
    close(ends[1]);
    EXPECT_EQ(readToEnd(ends[0]), "{\"string\":\"" + text + "\"}\n");
    close(ends[0]);
    const ProcessResult result = process.wait();
    EXPECT_EQ(result.exitCode, 0) << result.errors;
}

} // namespace
} // namespace wardlock::test
