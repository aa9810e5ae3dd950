#pragma once

#include "platform/plist/ScratchMemory.h"
#include "platform/plist/StringBuilder.h"
#include "platform/values/KeySet.h"
#include "platform/values/Value.h"

#include <cstddef>
#include <limits>
#include <memory_resource>
#include <string>
#include <system_error>
#include <vector>

namespace platform {

/// Writes the XML form of a property list as the platform does: one element a line, tabs, the root not
/// indented.
class XmlPropertyListWriter {
public:
    struct Bounds {
        std::size_t bytes = std::numeric_limits<std::size_t>::max();
        /// Containers inside each other.
        std::size_t levels = std::numeric_limits<std::size_t>::max();
    };

    /// `root` must outlive the writer.
    XmlPropertyListWriter(const Value& root, Bounds bounds);

    /// Writes the whole document; returns an error where the bounds are too narrow for it. Call it once.
    std::error_code write();
    /// Returns the written text.
    std::string take() { return text_.take(); }

private:
    /// A container whose elements are being written.
    struct Frame {
        const Value* next;
        const Value* end;
        /// Null in an array.
        const KeySet* keys;
        std::size_t place;
        /// Whether no key needs an escape.
        bool hasPlainKeys;
        /// Whether a value follows outside, which may repeat the keys of this container.
        bool hasFollower;
    };
    /// A part of the text that was written.
    struct Piece {
        std::size_t start;
        std::size_t length;
    };
    /// The last dictionary of a depth. Records of one kind share their keys; what precedes their values is
    /// copied from one to the next.
    struct LastDictionary {
        const KeySet* keys;
        /// Each key with its indentation and that of its value.
        std::pmr::vector<Piece> leadIns;
    };

    void writeUntil(std::size_t length);
    void writeNext();
    void open(const Value& container);
    void close();
    void writeLeadIn(const Frame& frame);
    void writeElement(const Value& value, StringBuilder::Tabs before);
    void writeOther(const Value& value);
    void writeNumber(const Value& value);
    void writeString(std::string_view text, StringBuilder::Tabs before);
    void writeData(std::string_view bytes);
    StringBuilder::Tabs indentation() const { return {frames_.size()}; }

    const Value& root_;
    Bounds bounds_;
    StringBuilder text_;
    ScratchMemory scratch_;
    std::pmr::vector<Frame> frames_{scratch_.get()};
    /// Indexed by depth.
    std::pmr::vector<LastDictionary> last_{scratch_.get()};
    bool tooDeep_ = false;
};

} // namespace platform
