#pragma once

#include "platform/foundation/Value.h"

#include <string>
#include <vector>

namespace platform {

/// Writes the XML form of a property list as the platform does: one element a line, tabs, the root not
/// indented.
class XmlPropertyListWriter {
public:
    /// The whole document. To be called once.
    std::string write(const Value& root);

private:
    /// A container whose elements are being written.
    struct Frame {
        const Value* next;
        const Value* end;
        /// Null in an array.
        const KeySet* keys;
        std::size_t place;
    };

    void open(const Value& container);
    void writeElement(const Value& value);
    void writeString(std::string_view text);
    void writeData(std::string_view bytes);
    void indent() { text_.append(frames_.size(), '\t'); }
    void line(std::string_view element);

    std::string text_;
    std::vector<Frame> frames_;
};

} // namespace platform
