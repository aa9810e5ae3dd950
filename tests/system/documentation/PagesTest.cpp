#include "tests/support/BuildPaths.h"
#include "tests/system/documentation/Console.h"
#include "tests/system/documentation/Page.h"
#include "tests/system/documentation/Pattern.h"
#include "tests/system/documentation/Untested.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

std::vector<Page> pages(const std::vector<std::string>& paths = pagesOfTheDocumentation()) {
    return {paths.begin(), paths.end()};
}

void expectTarget(const Page& page, const std::string& target) {
    static const Pattern elsewhere("[a-z]+:.*");
    if (elsewhere.matchOf(target))
        return;
    const auto hash = target.find('#');
    const fs::path beside = fs::path(page.path()).parent_path() / target.substr(0, hash);
    const std::string path = hash == 0 ? page.path() : beside.lexically_normal().string();
    ASSERT_TRUE(fs::exists(sourceFolder() + '/' + path));
    if (hash != std::string::npos) {
        EXPECT_TRUE(Page(path).anchors().contains(target.substr(hash + 1)));
    }
}

TEST(DocumentationPages, LinkToExistingTargets) {
    for (const Page& page : pages(pagesOfTheSource()))
        for (const Link& link : page.links()) {
            SCOPED_TRACE(page.place(link.line) + ": " + link.target);
            expectTarget(page, link.target);
        }
}

/// Whether the text reads as a path below one of the source's folders.
bool namesAFile(const std::string& text) {
    static const Pattern path("([.]/)?([A-Za-z][A-Za-z0-9_-]*)/[A-Za-z0-9_./*-]*");
    const auto match = path.matchOf(text);
    // What lies in build/ comes with building.
    return match && (*match)[2] != "build" && fs::is_directory(sourceFolder() + '/' + (*match)[2]);
}

TEST(DocumentationPages, NameExistingFiles) {
    for (const Page& page : pages())
        for (const Span& span : page.spans())
            EXPECT_TRUE(!namesAFile(span.text) || existsInSource(span.text))
                << page.place(span.line) << ": " << span.text;
}

TEST(DocumentationPages, HaveOnlyBlocksOfKnownKinds) {
    // Commands, conversations with the script front end, excerpts of files, pictures; and texts, which have
    // no command in them.
    constexpr std::array known{"console", "script", "cpp", "cmake", "python", "mermaid", "text"};
    for (const Page& page : pages())
        for (const Block& block : page.blocks())
            EXPECT_NE(std::ranges::find(known, block.language), known.end())
                << page.place(block.line) << ": " << block.language;
}

TEST(DocumentationPages, HaveNoCodeWithoutAFence) {
    for (const Page& page : pages())
        for (const std::size_t line : page.indentedLines())
            ADD_FAILURE() << page.place(line);
}

TEST(DocumentationPages, HideNoCommandInATextBlock) {
    const auto isCommand = [](const std::string& line) { return line.starts_with("$ "); };
    for (const Page& page : pages())
        for (const Block& block : page.blocks())
            EXPECT_TRUE(block.language != "text" || std::ranges::none_of(block.lines, isCommand))
                << page.place(block.line);
}

TEST(DocumentationPages, ShowCodeAsInItsFile) {
    for (const Page& page : pages())
        for (const Block& block : page.blocks()) {
            if (block.language != "cpp" && block.language != "cmake" && block.language != "python")
                continue;
            const std::string file = block.word("from");
            ASSERT_FALSE(file.empty()) << page.place(block.line) << ": code that names no file";
            std::string excerpt = "\n";
            for (const std::string& line : block.lines)
                excerpt += line + '\n';
            EXPECT_NE(('\n' + sourceText(file)).find(excerpt), std::string::npos)
                << page.place(block.line) << ": not in " << file;
        }
}

TEST(DocumentationPages, AreInTheIndex) {
    const Page index("docs/index.md");
    for (const Page& page : pages()) {
        const std::string name = fs::path(page.path()).filename();
        EXPECT_TRUE(page.path() == "README.md" || page.path() == index.path() ||
                    std::ranges::find(index.links(), name, &Link::target) != index.links().end())
            << page.path();
    }
}

TEST(UntestedCommands, AreShownSomewhereAndHaveAReason) {
    std::vector<std::string> commands;
    for (const Page& page : pages())
        for (const Step& step : stepsOf(page))
            commands.push_back(step.command);
    for (const Untested& untested : untestedCommands()) {
        SCOPED_TRACE(std::string(untestedPage) + ':' + std::to_string(untested.line));
        EXPECT_NE(untested.reason, "");
        EXPECT_TRUE(
            std::ranges::any_of(commands, [&](const auto& command) { return untested.covers(command); }))
            << "no page shows " << untested.beginning;
    }
}

} // namespace
} // namespace wardlock::test
