#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform::web {

/// Gathers the text of a page: white space collapsed, line ends held back until more text comes, control
/// characters and what is not UTF-8 left out.
class TextFlow {
public:
    void write(std::string_view text);
    /// What follows stands on a line of its own; with two line ends, behind an empty line.
    void endLine(std::size_t lineEnds);
    /// One more line end, however many there are.
    void breakLine();
    /// Between the two the lines and blanks stand as they are written; both nest.
    void beginPreformatted() { ++preformatted_; }
    void endPreformatted() { --preformatted_; }

    std::size_t size() const { return text_.size(); }
    /// What was written since the text had that size, blanks at its beginning aside.
    std::string_view since(std::size_t size) const;
    /// The whole, with a line end.
    std::string take();

private:
    void put(char32_t character);
    void append(char32_t character);

    std::string text_;
    bool space_ = false;
    std::size_t lineEnds_ = 0;
    int preformatted_ = 0;
};

} // namespace platform::web
