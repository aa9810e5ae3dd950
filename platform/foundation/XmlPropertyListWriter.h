#pragma once

#include "platform/foundation/OutputText.h"
#include "platform/foundation/Value.h"

#include <string>
#include <vector>

namespace platform {

/// Writes the XML form of a property list as the platform does: one element a line, tabs, the root not
/// indented.
class XmlPropertyListWriter {
public:
    /// The root must outlive the writer.
    explicit XmlPropertyListWriter(const Value& root);

    /// The whole document. To be called once.
    std::string write();

private:
    /// A container whose elements are being written.
    struct Frame {
        const Value* next;
        const Value* end;
        /// Null in an array.
        const KeySet* keys;
        bool keysNeedNoEscape;
        std::size_t place;
    };

    void open(const Value& container);
    void close();
    void writeKey(const Frame& frame);
    void writeElement(const Value& value);
    void writeNumber(const Value& value);
    void writeString(std::string_view text);
    void writeData(std::string_view bytes);
    void indent() { text_.putTabs(frames_.size()); }

    const Value& root_;
    OutputText text_;
    std::vector<Frame> frames_;
};

} // namespace platform
