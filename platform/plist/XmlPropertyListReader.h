#pragma once

#include "platform/plist/PropertyListBuilder.h"
#include "platform/plist/XmlCursor.h"
#include "platform/plist/XmlText.h"
#include "platform/values/Value.h"

#include <optional>
#include <span>
#include <string_view>

namespace platform {

/// Reads the XML form of a property list in one pass. Entities are neither declared nor looked up. A DOCTYPE
/// is skipped; one with declarations of its own is refused.
class XmlPropertyListReader {
public:
    /// `document` is UTF-8 without a byte-order mark; it must outlive the reader.
    explicit XmlPropertyListReader(std::string_view document)
        : cursor_(document), builder_(document.size()) {}

    /// Returns nothing unless the whole document is a property list. Call it once.
    std::optional<Value> read();

private:
    enum class Element : int {
        None,
        PropertyList,
        Array,
        Dictionary,
        Key,
        String,
        True,
        False,
        Integer,
        Real,
        Date,
        Data
    };
    enum class TagKind : int { Opening, Closing, Empty };

    bool skipMiscellany();
    bool skipDocumentType();
    bool readProlog();
    using LeadIns = std::span<const std::string_view>;

    void readRun();
    bool readPlainKey(XmlCursor& cursor, LeadIns& expected);
    bool readPlainValue(XmlCursor& cursor);
    bool readElement();
    bool readKey(const XmlCursor& before);
    bool readLeaf(Element element);
    bool closes(Element element);
    bool addLeaf(Element element, std::string_view text);
    bool open(Element element, bool empty);
    bool close(Element element);
    static std::optional<PropertyListBuilder::Container> containerOf(Element element);
    bool takeTag();
    Element takeName();
    bool skipAttributes();

    XmlCursor cursor_;
    PropertyListBuilder builder_;
    XmlText text_;
    /// The latest tag.
    Element element_ = Element::None;
    TagKind tagKind_ = TagKind::Opening;
    bool wrapped_ = false;
};

} // namespace platform
