#include "tests/system/documentation/Page.h"

#include "tests/support/BuildPaths.h"
#include "tests/system/documentation/Pattern.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fnmatch.h>
#include <fstream>
#include <iterator>
#include <sstream>

namespace wardlock::test {
namespace {

constexpr std::string_view fenceMark = "```";

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The cells of "| a | b |"; a bar behind a backslash or within code divides nothing.
std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    std::string cell;
    bool code = false;
    for (std::size_t at = 1; at < line.size(); ++at) {
        code ^= line[at] == '`';
        if (line[at] == '|' && !code && line[at - 1] != '\\') {
            cells.push_back(trimmed(cell));
            cell.clear();
        } else {
            cell += line[at];
        }
    }
    return cells;
}

/// What readers' programs make of a heading for links to it.
std::string anchorOf(const std::string& heading) {
    std::string anchor;
    for (const char character : heading) {
        const auto byte = static_cast<unsigned char>(character);
        if (std::isalnum(byte) || byte >= 0x80 || character == '-' || character == '_')
            anchor += static_cast<char>(std::tolower(byte));
        else if (character == ' ')
            anchor += '-';
    }
    return anchor;
}

} // namespace

std::string Block::word(std::string_view name) const {
    for (const std::string& word : words)
        if (word.starts_with(name) && word.substr(name.size(), 1) == "=")
            return word.substr(name.size() + 1);
    return {};
}

Page::Page(const std::string& path) : Page(path, sourceText(path)) {}

Page::Page(const std::string& path, const std::string& source) : path_(path) {
    std::istringstream text(source);
    bool inBlock = false;
    bool afterBlank = true;
    std::string line;
    for (std::size_t number = 1; std::getline(text, line); ++number) {
        if (inBlock && line == fenceMark)
            inBlock = false;
        else if (inBlock)
            blocks_.back().lines.push_back(line);
        else if (line.starts_with(fenceMark)) {
            inBlock = true;
            readFence(line, number);
        } else {
            if (afterBlank && line.starts_with("    "))
                indentedLines_.push_back(number);
            readText(line, number);
        }
        afterBlank = line.empty();
    }
    EXPECT_FALSE(inBlock) << path << ": a block without an end";
}

void Page::readFence(const std::string& fence, std::size_t line) {
    std::istringstream words(fence.substr(fenceMark.size()));
    Block block;
    block.line = line;
    words >> block.language;
    for (std::string word; words >> word;)
        block.words.push_back(word);
    blocks_.push_back(block);
}

void Page::readText(const std::string& text, std::size_t line) {
    if (text.starts_with('#'))
        readHeading(text, line);
    if (text.starts_with('|'))
        rows_.push_back({line, cellsOf(text)});
    for (std::string& code : codeIn(text))
        spans_.push_back({line, std::move(code)});
    // Brackets within code are not links.
    static const Pattern code("`[^`]+`");
    const std::string prose = code.replacedIn(text, "code");
    static const Pattern markdown(R"(\]\(([^)[:space:]]+)\))");
    for (Pattern::Match& match : markdown.matchesIn(prose))
        links_.push_back({line, std::move(match[1])});
    static const Pattern html(R"rx((src|srcset|href)="([^"]+)")rx");
    for (Pattern::Match& match : html.matchesIn(prose))
        links_.push_back({line, std::move(match[2])});
}

void Page::readHeading(const std::string& text, std::size_t line) {
    const std::string heading = trimmed(text.substr(text.find_first_not_of('#')));
    headings_.push_back({line, heading});
    std::string anchor = anchorOf(heading);
    // The second heading of the same text is distinguished by a number.
    for (int again = 1; anchors_.contains(anchor); ++again)
        anchor = anchorOf(heading) + '-' + std::to_string(again);
    anchors_.insert(anchor);
}

std::vector<TableRow> Page::tableBelow(const std::string& heading) const {
    const auto found = std::ranges::find(headings_, heading, &Heading::text);
    if (found == headings_.end()) {
        ADD_FAILURE() << path_ << " has no heading \"" << heading << '"';
        return {};
    }
    const auto next = std::next(found);
    std::vector<TableRow> table;
    for (const TableRow& row : rows_)
        if (row.line > found->line && (next == headings_.end() || row.line < next->line))
            table.push_back(row);
    // Each table's first two lines are its heading and the rule below it.
    std::vector<TableRow> body;
    for (std::size_t at = 0; at < table.size(); ++at) {
        const bool rule =
            table[at].cells.empty() || table[at].cells[0].find_first_not_of("-:") == std::string::npos;
        if (rule && !body.empty() && body.back().line + 1 == table[at].line)
            body.pop_back();
        else if (!rule)
            body.push_back(table[at]);
    }
    return body;
}

std::string Page::place(std::size_t line) const {
    return path_ + ':' + std::to_string(line);
}

std::vector<std::string> pagesOfTheDocumentation() {
    std::vector<std::string> pages{"README.md"};
    for (const auto& entry : std::filesystem::directory_iterator(sourceFolder() + "/docs"))
        if (entry.path().extension() == ".md")
            pages.push_back("docs/" + entry.path().filename().string());
    std::ranges::sort(pages);
    return pages;
}

std::vector<std::string> pagesOfTheSource() {
    std::vector<std::string> pages;
    std::filesystem::recursive_directory_iterator entry(sourceFolder());
    for (const auto end = std::filesystem::end(entry); entry != end; ++entry) {
        const std::string name = entry->path().filename();
        if (entry->is_directory() && (name.starts_with('.') || (entry.depth() == 0 && name == "build")))
            entry.disable_recursion_pending();
        else if (name.ends_with(".md"))
            pages.push_back(std::filesystem::relative(entry->path(), sourceFolder()));
    }
    return pages;
}

std::vector<std::string> pagesWith(std::string_view language) {
    std::vector<std::string> pages = pagesOfTheDocumentation();
    std::erase_if(pages, [&](const std::string& path) {
        const Page page(path);
        return std::ranges::find(page.blocks(), language, &Block::language) == page.blocks().end();
    });
    return pages;
}

std::string nameOf(const std::string& page) {
    std::string name = std::filesystem::path(page).stem().string();
    std::ranges::replace(name, '-', '_');
    return name;
}

bool existsInSource(const std::string& path) {
    const auto star = path.find('*');
    if (star == std::string::npos)
        return std::filesystem::exists(sourceFolder() + '/' + path);
    const auto slash = path.rfind('/');
    const std::filesystem::path above = sourceFolder() + '/' + path.substr(0, slash);
    const std::string pattern = path.substr(slash + 1);
    return std::filesystem::is_directory(above) &&
           std::ranges::any_of(std::filesystem::directory_iterator(above), [&](const auto& entry) {
               return fnmatch(pattern.c_str(), entry.path().filename().c_str(), 0) == 0;
           });
}

std::string sourceText(const std::string& path) {
    std::ifstream file(sourceFolder() + '/' + path);
    EXPECT_TRUE(file.is_open()) << path << " cannot be read";
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace wardlock::test
