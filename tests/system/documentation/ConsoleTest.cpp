#include "tests/system/documentation/Console.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

// What the tests of the pages rely on: that they find every command, and that they notice what is not as
// shown.

namespace wardlock::test {
namespace {

std::vector<StepResult> results(const std::string& page) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "scratch");
    return perform(stepsOf(Page("page", page)), folder.path(), folder / "scratch");
}

TEST(Console, HasACommandBehindEachPrompt) {
    const auto steps = stepsOf(Page("page", "Text\n\n```console\n$ echo a\na\n$ echo \\\n  b\nb\n```\n"));
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].line, 4U);
    EXPECT_EQ(steps[0].command, "echo a");
    EXPECT_EQ(steps[0].output, std::vector<std::string>{"a"});
    EXPECT_EQ(steps[1].command, "echo \\\n  b");
    EXPECT_EQ(steps[1].output, std::vector<std::string>{"b"});
}

TEST(Console, RunsCommandsInOneShell) {
    const auto found = results(
        "```console\n$ mkdir a; cd a; word=b\n```\n\n```console\n$ echo $word $(basename $PWD)\n```\n");
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].output, "");
    EXPECT_EQ(found[1].output, "b a\n");
    EXPECT_EQ(found[1].exitCode, 0);
}

TEST(Console, ReportsErrorsAndExitCodes) {
    const auto found = results("```console\n$ echo wrong >&2; (exit 3)\n$ echo on\n```\n");
    EXPECT_EQ(found[0].exitCode, 3);
    EXPECT_EQ(found[0].output, "wrong\n");
    EXPECT_EQ(found[1].exitCode, 0);
}

TEST(Console, ContinuesInAnotherTerminal) {
    const auto found = results("```console\n$ mkfifo pipe\n```\n```console terminal=second\n"
                               "$ sh -c 'echo ready; cat pipe'\nready\n```\n"
                               "```console\n$ echo said >pipe\n```\n```console terminal=second\nsaid\n```\n");
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found[1].output, "ready\n");
    EXPECT_EQ(found[3].output, "said\n");
}

TEST(Console, ReportsALineThatAnotherTerminalDoesNotPrint) {
    const auto found = results("```console terminal=second\n$ echo one\none\ntwo\n```\n");
    EXPECT_EQ(found[0].output, "one\n");
    EXPECT_NE(found[0].exitCode, 0);
}

TEST(ShownOutput, IsComparedLineByLine) {
    EXPECT_TRUE(isAsShown({"a", "b"}, "a\nb\n"));
    EXPECT_FALSE(isAsShown({"a", "b"}, "a\n"));
    EXPECT_FALSE(isAsShown({"a"}, "a\nb\n"));
    EXPECT_FALSE(isAsShown({"a"}, "A\n"));
    EXPECT_FALSE(isAsShown({}, "a\n"));
}

TEST(ShownOutput, LetsDotsReplaceAnyText) {
    EXPECT_TRUE(isAsShown({"a...d"}, "abcd\n"));
    EXPECT_FALSE(isAsShown({"a...d"}, "abcde\n"));
    EXPECT_TRUE(isAsShown({"a", "...", "d"}, "a\nb\nc\nd\n"));
    EXPECT_TRUE(isAsShown({"a", "..."}, "a\n"));
    EXPECT_FALSE(isAsShown({"...", "d"}, "a\nd\ne\n"));
}

TEST(DocumentationPage, FindsCodeWithoutAFence) {
    const Page page("page", "Text:\n\n    rm -r /\n\n- a list\n    goes on\n");
    EXPECT_EQ(page.indentedLines(), std::vector<std::size_t>{3});
}

TEST(DocumentationPage, FindsLinksPicturesAndAnchors) {
    const Page page(
        "page",
        "# A `b` C: d\n\n[a](b.md#c) ![d](e.png) `[no](link)`\n<img src=\"f.png\">\n\n# A `b` C: d\n");
    std::vector<std::string> targets;
    for (const Link& link : page.links())
        targets.push_back(link.target);
    EXPECT_EQ(targets, (std::vector<std::string>{"b.md#c", "e.png", "f.png"}));
    EXPECT_EQ(page.anchors(), (std::set<std::string>{"a-b-c-d", "a-b-c-d-1"}));
}

TEST(DocumentationPage, ReadsTheRowsOfTheTableBelowAHeading) {
    const Page page("page", "# One\n\n| a | b |\n|---|---|\n| `c|d` | e |\n\n# Two\n\n| f |\n|---|\n| g |\n");
    const auto rows = page.tableBelow("One");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].line, 5U);
    EXPECT_EQ(rows[0].cells, (std::vector<std::string>{"`c|d`", "e"}));
}

} // namespace
} // namespace wardlock::test
