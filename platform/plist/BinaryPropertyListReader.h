#pragma once

#include "platform/plist/BinaryObjectTable.h"
#include "platform/plist/DictionaryBuilder.h"
#include "platform/plist/DocumentShape.h"
#include "platform/plist/ScratchMemory.h"
#include "platform/values/Arena.h"

#include <cstdint>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string_view>
#include <vector>

namespace platform {

/// Reads the binary form ("bplist00") of a property list. Every length is checked against the remaining bytes
/// before anything is allocated for it. Objects may be named any number of times, so the size of the value
/// once written out is bounded as well.
class BinaryPropertyListReader {
public:
    static constexpr std::string_view magic = BinaryObjectTable::magic;

    /// `bytes` must outlive the reader.
    explicit BinaryPropertyListReader(std::string_view bytes)
        : table_(bytes), arena_(Arena::create(2 * bytes.size())),
          dictionaries_(*arena_, Duplicates::KeepFirst, *shape_) {}

    /// Returns nothing unless the bytes are a property list. Call it once.
    std::optional<Value> read();

private:
    /// An object of the table; read once, however often it is named.
    struct Object {
        enum class State : std::uint8_t { Unread, Reading, Read };
        State state = State::Unread;
        /// 1 and more for containers; 0 for other values.
        std::uint16_t height = 0;
        /// The bytes of the value written out, with all it contains.
        std::uint64_t weight = 0;
        ArenaValue value;
    };
    using enum BinaryObjectTable::Kind;
    using Content = BinaryObjectTable::Content;
    /// The keys of the last dictionary of a depth, whose references, byte for byte, name them again.
    struct LastKeys {
        std::string_view references;
        KeySet* keys = nullptr;
        std::uint64_t weight = 0;
        /// They were in the last document, too.
        bool expected = false;
    };

    const Object* object(std::uint64_t index, std::size_t depth);
    bool readObject(std::uint64_t index, std::size_t depth);
    bool readContent(const Content& content, std::size_t depth, Object& object);
    std::optional<Value> singleByte(std::uint8_t marker) const;
    std::optional<Value> number(const Content& content) const;
    bool readUid(const Content& content, Object& object);
    bool readBytes(const Content& content, Object& object);
    bool readWideString(const Content& content, Object& object);
    bool readArray(const Content& content, std::size_t depth, Object& object);
    bool readDictionary(const Content& content, std::size_t depth, Object& object);
    bool readKeys(const Content& content, std::size_t depth, Object& object);
    std::optional<std::string_view> keyAt(std::uint64_t index, std::size_t depth);
    LastKeys& lastKeys(std::size_t depth);
    bool repeatsKeys(const Content& content, std::size_t depth, std::string_view references);
    void rememberShape() const;
    bool readReferences(std::size_t start, std::uint64_t count, std::size_t depth, Object& object);

    ScratchMemory scratch_;
    std::shared_ptr<const DocumentShape> shape_ = DocumentShape::latest();
    BinaryObjectTable table_;
    IntrusivePointer<Arena> arena_;
    DictionaryBuilder dictionaries_;
    std::pmr::vector<Object> objects_{scratch_.get()};
    /// The elements and the keys of the containers that are being read, innermost last.
    std::pmr::vector<ArenaValue> values_{scratch_.get()};
    std::pmr::vector<std::string_view> keys_{scratch_.get()};
    /// Indexed by depth; the outermost is 1.
    std::pmr::vector<LastKeys> lastKeys_{scratch_.get()};
};

} // namespace platform
