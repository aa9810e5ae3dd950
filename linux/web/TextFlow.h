#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform::web {

/// Collects the text of a page: white space is collapsed, and line ends are kept back until more text comes.
/// Control characters and bytes that are not UTF-8 are left out.
class TextFlow {
public:
    void write(std::string_view text);
    /// The following text is on a line of its own; with two line ends, after an empty line.
    void endLine(std::size_t lineEnds);
    /// One more line end, however many there are.
    void breakLine();
    /// Between the two, lines and blanks stay as they are written; both nest.
    void beginPreformatted() { ++preformatted_; }
    void endPreformatted() { --preformatted_; }

    std::size_t size() const { return text_.size(); }
    /// Returns the text after the first `size` bytes, without blanks at its beginning.
    std::string_view since(std::size_t size) const;
    /// Returns the whole text, with a line end.
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
