#include "cli/io/ShellWord.h"

#include "tests/support/Process.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using cli::shellWord;

/// What the shell hands to a program for the word.
std::string readBy(const std::string& shell, const std::string& text) {
    const ProcessResult result = runProcess(shell, {"-c", "printf '%s' " + shellWord(text)});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    return result.output;
}

TEST(ShellWord, IsThePlainTextWhenEveryShellReadsItSo) {
    EXPECT_EQ(shellWord("/home/tom/.local/share/wardlock-2"), "/home/tom/.local/share/wardlock-2");
}

TEST(ShellWord, IsReadByAShellAsTheText) {
    for (const char* text : {"/a b", "/a;touch b", "/$(touch b)", "/`touch b`", "/it's", "/\"quoted\"", "/*",
                             "/a\\b", "", "~", "/a&b|c>d", "/gr\u00f6\u00dfer"})
        for (const char* shell : {"/bin/sh", "/bin/bash"})
            EXPECT_EQ(readBy(shell, text), text) << shell;
}

TEST(ShellWord, IsReadByBashAsATextWithControlCharacters) {
    for (const char* text : {"/a\nb", "/\x1B[31m'quoted'\\n", "/\xFF", "/\u009B"}) {
        EXPECT_EQ(readBy("/bin/bash", text), text);
        EXPECT_EQ(shellWord(text).find_first_of("\x1B\n\xFF\x9B"), std::string::npos);
    }
}

} // namespace
} // namespace wardlock::test
