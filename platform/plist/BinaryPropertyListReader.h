#pragma once

#include "platform/plist/DictionaryBuilder.h"
#include "platform/values/Value.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace platform {

/// Reads the binary form ("bplist00") of a property list. Every length is checked against the remaining bytes
/// before anything is allocated for it. Objects may be named any number of times, so the size of the value
/// once written out is bounded as well.
class BinaryPropertyListReader {
public:
    static constexpr std::string_view magic = "bplist00";

    /// `bytes` must outlive the reader.
    explicit BinaryPropertyListReader(std::string_view bytes)
        : bytes_(bytes), dictionaries_(Duplicates::KeepFirst) {}

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
        std::optional<Value> value;
    };
    /// The bytes of an object after its marker and length.
    struct Content {
        std::uint8_t kind;
        std::uint64_t length;
        std::size_t start;
    };

    bool readTrailer();
    Object* readObject(std::uint64_t index, std::size_t depth);
    std::optional<Value> valueAt(std::size_t offset, std::size_t depth, Object& object);
    std::optional<Content> contentAt(std::size_t offset) const;
    std::optional<Value> singleByte(std::uint8_t marker) const;
    std::optional<Value> integer(const Content& content) const;
    std::optional<Value> real(const Content& content) const;
    std::optional<Value> date(const Content& content) const;
    std::optional<Value> uid(const Content& content) const;
    std::optional<Value> bytes(const Content& content, Object& object) const;
    std::optional<Value> wideString(const Content& content, Object& object) const;
    std::optional<Value> array(const Content& content, std::size_t depth, Object& object);
    std::optional<Value> dictionary(const Content& content, std::size_t depth, Object& object);
    bool readReferences(std::size_t start, std::uint64_t count, std::size_t depth, Object& object,
                        std::vector<Value>& values);

    std::uint64_t bigEndian(std::size_t at, std::size_t length) const;
    bool fits(std::size_t at, std::uint64_t count, std::uint64_t size) const;

    std::string_view bytes_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::uint64_t objectCount_ = 0;
    std::uint64_t topObject_ = 0;
    std::size_t table_ = 0;
    std::vector<Object> objects_;
    DictionaryBuilder dictionaries_;
};

} // namespace platform
