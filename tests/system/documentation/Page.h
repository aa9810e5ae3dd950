#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

/// A fenced block of a page.
struct Block {
    /// The fence's line, from 1.
    std::size_t line = 0;
    /// The first word after the fence, and the others.
    std::string language;
    std::vector<std::string> words;
    std::vector<std::string> lines;

    /// The text behind `name=` among the words; empty when there is none.
    std::string word(std::string_view name) const;
};

/// A link or a picture of a page, as it is written.
struct Link {
    std::size_t line = 0;
    std::string target;
};

/// `a piece of code` within a sentence or a table.
struct Span {
    std::size_t line = 0;
    std::string text;
};

/// A row of a table: its cells, without the blanks around them.
struct TableRow {
    std::size_t line = 0;
    std::vector<std::string> cells;
};

/// A page of the documentation, taken apart.
class Page {
public:
    /// The path is relative to the source folder.
    explicit Page(const std::string& path);
    Page(const std::string& path, const std::string& text);

    const std::string& path() const { return path_; }
    const std::vector<Block>& blocks() const { return blocks_; }
    const std::vector<Link>& links() const { return links_; }
    const std::vector<Span>& spans() const { return spans_; }
    /// Lines of code that are merely indented: no commands are found there.
    const std::vector<std::size_t>& indentedLines() const { return indentedLines_; }
    /// What a link may name behind `#`.
    const std::set<std::string>& anchors() const { return anchors_; }
    /// The rows of the tables below the heading of that text, up to the next heading.
    std::vector<TableRow> tableBelow(const std::string& heading) const;
    /// "docs/index.md:12", for a failure.
    std::string place(std::size_t line) const;

private:
    struct Heading {
        std::size_t line = 0;
        std::string text;
    };

    void readFence(const std::string& fence, std::size_t line);
    void readText(const std::string& text, std::size_t line);
    void readHeading(const std::string& text, std::size_t line);

    std::string path_;
    std::vector<Block> blocks_;
    std::vector<Link> links_;
    std::vector<Span> spans_;
    std::vector<std::size_t> indentedLines_;
    std::vector<TableRow> rows_;
    std::vector<Heading> headings_;
    std::set<std::string> anchors_;
};

/// README.md and the pages of docs/, by path.
std::vector<std::string> pagesOfTheDocumentation();
/// Every page of the source, those beside examples and tools included.
std::vector<std::string> pagesOfTheSource();
/// Those of the documentation with a block in that language.
std::vector<std::string> pagesWith(std::string_view language);
/// The page's name without folder and ending, in letters that the name of a test may have.
std::string nameOf(const std::string& page);
/// Whether something in the source folder has the path, in which "*" replaces a part of its last name.
bool existsInSource(const std::string& path);
/// The text of a file below the source folder; a failed expectation and nothing where there is none.
std::string sourceText(const std::string& path);

} // namespace wardlock::test
