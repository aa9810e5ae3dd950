#include "tests/support/BuildPaths.h"
#include "tests/system/documentation/Page.h"
#include "tests/system/documentation/Pattern.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

// The picture in docs/architecture.md is compared with what the sources include.

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

using Arrow = std::pair<std::string, std::string>;

class Diagram : public ::testing::Test {
protected:
    Diagram() {
        for (const Block& block : page_.blocks())
            if (block.language == "mermaid")
                std::ranges::for_each(block.lines, [this](const std::string& line) { read(line); });
    }

    /// Which folder includes which in the sources, among those in the picture.
    std::set<Arrow> includes() const {
        std::set<Arrow> found;
        for (const auto& [folder, node] : nodes_)
            for (const auto& entry : fs::recursive_directory_iterator(sourceFolder() + '/' + folder)) {
                const std::string path = fs::relative(entry.path(), sourceFolder());
                if (entry.is_regular_file() && nodeOf(path) == node)
                    addIncludes(path, found);
            }
        return found;
    }

    /// Whether arrows lead from one to the other.
    bool leads(const std::string& from, const std::string& to) const {
        return std::ranges::any_of(arrows_, [&](const Arrow& arrow) {
            return arrow.first == from && (arrow.second == to || leads(arrow.second, to));
        });
    }

    /// By their folder, "linux/applist/".
    std::map<std::string, std::string> nodes_;
    /// Those of knowing, not of loading.
    std::set<Arrow> arrows_;

private:
    void read(const std::string& line) {
        static const Pattern node(R"rx( *([A-Za-z]+)\["([^"]*)"\])rx");
        static const Pattern arrow(R"rx( *([A-Za-z]+) (-- "[^"]*" )?--> ([A-Za-z]+))rx");
        static const Pattern folder("([a-z/]+/)[ <]");
        if (const auto match = arrow.matchOf(line))
            arrows_.emplace((*match)[1], (*match)[3]);
        if (const auto match = node.matchOf(line))
            for (const Pattern::Match& found : folder.matchesIn((*match)[2]))
                nodes_.emplace(found[1], (*match)[1]);
    }

    /// The one with the longest folder that the path lies in; empty when none has it.
    std::string nodeOf(const std::string& path) const {
        std::size_t longest = 0;
        std::string found;
        for (const auto& [folder, node] : nodes_)
            if (path.starts_with(folder) && folder.size() > longest) {
                longest = folder.size();
                found = node;
            }
        return found;
    }

    void addIncludes(const std::string& path, std::set<Arrow>& found) const {
        static const Pattern include("#include \"([^\"]+)\"");
        std::istringstream lines(sourceText(path));
        for (std::string line; std::getline(lines, line);)
            if (const auto match = include.matchOf(line))
                if (const std::string other = nodeOf((*match)[1]); !other.empty() && other != nodeOf(path))
                    found.emplace(nodeOf(path), other);
    }

    Page page_{"docs/architecture.md"};
};

TEST_F(Diagram, ShowsOnlyExistingFolders) {
    EXPECT_GT(nodes_.size(), 10U);
    for (const auto& [folder, node] : nodes_)
        EXPECT_TRUE(fs::is_directory(sourceFolder() + '/' + folder)) << folder;
}

TEST_F(Diagram, DrawsNoArrowWithoutAnInclude) {
    const auto hasFolder = [this](const std::string& name) {
        return std::ranges::any_of(nodes_, [&](const auto& node) { return node.second == name; });
    };
    const std::set<Arrow> known = includes();
    for (const Arrow& arrow : arrows_)
        // Another program's includes are not here to be looked at.
        EXPECT_TRUE(known.contains(arrow) || !hasFolder(arrow.first))
            << arrow.first << " --> " << arrow.second;
}

TEST_F(Diagram, DrawsEveryIncludeOrTheWayToThePlatform) {
    for (const auto& [from, to] : includes())
        EXPECT_TRUE(arrows_.contains({from, to}) || (to == "platform" && leads(from, to)))
            << from << " --> " << to;
}

} // namespace
} // namespace wardlock::test
