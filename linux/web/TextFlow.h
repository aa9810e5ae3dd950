#pragma once

#include "platform/ui/UIWebView.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform::web {

/// Collects the text of a page in blocks: white space is collapsed, and line ends are kept back until more
/// text comes. Control characters and bytes that are not UTF-8 are left out.
class TextFlow {
public:
    void write(std::string_view text);
    /// The following text is a block of its own; with two line ends, after an empty line.
    void endLine(std::size_t lineEnds);
    /// One more line end within the block.
    void breakLine() { ++lineEnds_; }
    /// Between each of these pairs, text has the meaning that they name; all of them nest.
    void beginPreformatted() { ++preformatted_; }
    void endPreformatted() { --preformatted_; }
    void beginHeading(int rank) { headings_.push_back(rank); }
    void endHeading() { headings_.pop_back(); }
    void beginList() { ++lists_; }
    void endList() { --lists_; }
    void beginItem() { atItem_ = true; }
    void endItem() { atItem_ = false; }
    /// Between these two, text belongs to the link of that number, from 1. A link without text is a run
    /// without text. endLink() returns the link's text, in one line.
    void beginLink(std::size_t number);
    std::string endLink();

    /// Returns all blocks.
    std::vector<WebBlock> take() { return std::move(blocks_); }

private:
    void put(char32_t character);
    void append(char32_t character);
    /// Writes the line ends and the space that were kept back.
    void writeSpace();
    void beginBlock();
    WebRun& run(std::size_t link);

    std::vector<WebBlock> blocks_;
    std::vector<int> headings_;
    std::size_t link_ = 0;
    /// What the current link shows so far.
    std::string linkText_;
    std::size_t lineEnds_ = 0;
    int preformatted_ = 0;
    int lists_ = 0;
    bool atItem_ = false;
    bool space_ = false;
    bool blockEnds_ = true;
};

} // namespace platform::web
