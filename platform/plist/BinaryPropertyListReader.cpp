#include "platform/plist/BinaryPropertyListReader.h"

#include "platform/plist/PropertyListBounds.h"
#include "platform/plist/TextDecoding.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace platform {

namespace {

constexpr std::size_t trailerLength = 32;
/// Width of offsets and references, in bytes.
constexpr std::size_t widest = 16;

/// A value's weight is about its share of an XML document. The whole may weigh a hundred times what any
/// settings need.
constexpr std::uint64_t valueWeight = 64;
constexpr std::uint64_t heaviest = std::uint64_t(256) << 20;

enum Kind : std::uint8_t {
    Single = 0x0,
    Integer = 0x1,
    Real = 0x2,
    Date = 0x3,
    Data = 0x4,
    AsciiString = 0x5,
    Utf16String = 0x6,
    Uid = 0x8,
    ArrayKind = 0xA,
    DictionaryKind = 0xD
};

} // namespace

std::optional<Value> BinaryPropertyListReader::read() {
    if (!readTrailer())
        return std::nullopt;
    objects_.resize(static_cast<std::size_t>(objectCount_));
    Object* top = readObject(topObject_, 1);
    return top ? std::move(top->value) : std::nullopt;
}

/// Reads the last 32 bytes: six unused, the sizes of an offset and of a reference, the number of objects, the
/// top object, and the position of the offset table.
bool BinaryPropertyListReader::readTrailer() {
    if (!bytes_.starts_with(magic) || bytes_.size() < magic.size() + trailerLength)
        return false;
    const std::size_t trailer = bytes_.size() - trailerLength;
    offsetSize_ = static_cast<std::size_t>(bigEndian(trailer + 6, 1));
    referenceSize_ = static_cast<std::size_t>(bigEndian(trailer + 7, 1));
    objectCount_ = bigEndian(trailer + 8, 8);
    topObject_ = bigEndian(trailer + 16, 8);
    const std::uint64_t table = bigEndian(trailer + 24, 8);
    const bool sizesAreSound =
        offsetSize_ >= 1 && offsetSize_ <= widest && referenceSize_ >= 1 && referenceSize_ <= widest;
    if (!sizesAreSound || objectCount_ == 0 || table < magic.size() || table > trailer)
        return false;
    table_ = static_cast<std::size_t>(table);
    // Each object has a byte of its own, at an offset of its own: a table of millions needs a file of
    // millions.
    const std::uint64_t offsets = offsetSize_ < 8 ? std::uint64_t(1) << (8 * offsetSize_) : objectCount_;
    const std::uint64_t room = std::min<std::uint64_t>(table_ - magic.size(), offsets);
    return objectCount_ <= std::min<std::uint64_t>(room, (trailer - table_) / offsetSize_);
}

/// Returns null when the object is invalid, contains itself, or is nested too deeply.
BinaryPropertyListReader::Object* BinaryPropertyListReader::readObject(std::uint64_t index,
                                                                       std::size_t depth) {
    if (index >= objectCount_)
        return nullptr;
    Object& object = objects_[static_cast<std::size_t>(index)];
    if (object.state == Object::State::Unread) {
        object.state = Object::State::Reading;
        const std::uint64_t offset =
            bigEndian(table_ + static_cast<std::size_t>(index) * offsetSize_, offsetSize_);
        if (offset < magic.size() || offset >= table_)
            return nullptr;
        object.weight = valueWeight;
        object.value = valueAt(static_cast<std::size_t>(offset), depth, object);
        object.state = Object::State::Read;
    }
    const bool fits = object.height == 0 || depth + object.height - 1 <= deepestPropertyList;
    return object.value && fits ? &object : nullptr;
}

std::optional<Value> BinaryPropertyListReader::valueAt(std::size_t offset, std::size_t depth,
                                                       Object& object) {
    const auto content = contentAt(offset);
    if (!content)
        return std::nullopt;
    switch (content->kind) {
    case Single:
        return singleByte(static_cast<std::uint8_t>(content->length));
    case Integer:
        return integer(*content);
    case Real:
        return real(*content);
    case Date:
        return date(*content);
    case Data:
    case AsciiString:
        return bytes(*content, object);
    case Utf16String:
        return wideString(*content, object);
    case Uid:
        object.height = 1;
        return uid(*content);
    case ArrayKind:
        return array(*content, depth, object);
    case DictionaryKind:
        return dictionary(*content, depth, object);
    default:
        return std::nullopt;
    }
}

/// Reads the marker's low half: the length, or the sign that an integer object with the length follows.
std::optional<BinaryPropertyListReader::Content>
BinaryPropertyListReader::contentAt(std::size_t offset) const {
    const auto marker = static_cast<std::uint8_t>(bytes_[offset]);
    Content content{static_cast<std::uint8_t>(marker >> 4), marker & 0x0Fu, offset + 1};
    const bool counted = content.kind >= Data && content.kind != Uid;
    if (!counted || content.length != 0xF)
        return content;
    if (!fits(content.start, 1, 1))
        return std::nullopt;
    const auto lengthMarker = static_cast<std::uint8_t>(bytes_[content.start]);
    const std::size_t lengthSize = std::size_t(1) << (lengthMarker & 0x0F);
    if (lengthMarker >> 4 != Integer || lengthSize > 8 || !fits(content.start + 1, 1, lengthSize))
        return std::nullopt;
    content.length = bigEndian(content.start + 1, lengthSize);
    content.start += 1 + lengthSize;
    return content;
}

std::optional<Value> BinaryPropertyListReader::singleByte(std::uint8_t marker) const {
    if (marker != 8 && marker != 9)
        return std::nullopt;
    return Value(marker == 9);
}

/// Shorter integers are unsigned, those of eight bytes signed; sixteen bytes are for numbers above the
/// largest signed one.
std::optional<Value> BinaryPropertyListReader::integer(const Content& content) const {
    const std::size_t size = std::size_t(1) << content.length;
    if (size > 16 || !fits(content.start, 1, size))
        return std::nullopt;
    if (size < 8)
        return Value(bigEndian(content.start, size));
    const std::uint64_t low = bigEndian(content.start + size - 8, 8);
    const bool negative = low >> 63 != 0;
    if (size == 8)
        return Value(static_cast<std::int64_t>(low));
    const std::uint64_t high = bigEndian(content.start, 8);
    if (high == 0)
        return Value(low);
    if (high != ~std::uint64_t(0) || !negative)
        return std::nullopt;
    return Value(static_cast<std::int64_t>(low));
}

std::optional<Value> BinaryPropertyListReader::real(const Content& content) const {
    const std::size_t size = std::size_t(1) << content.length;
    if ((size != 4 && size != 8) || !fits(content.start, 1, size))
        return std::nullopt;
    const std::uint64_t bits = bigEndian(content.start, size);
    return size == 8 ? Value(std::bit_cast<double>(bits))
                     : Value(std::bit_cast<float>(static_cast<std::uint32_t>(bits)));
}

std::optional<Value> BinaryPropertyListReader::date(const Content& content) const {
    if (content.length != 3 || !fits(content.start, 1, 8))
        return std::nullopt;
    return Value::date(std::bit_cast<double>(bigEndian(content.start, 8)));
}

std::optional<Value> BinaryPropertyListReader::uid(const Content& content) const {
    const std::uint64_t size = content.length + 1;
    if (size > 8 || !fits(content.start, 1, size))
        return std::nullopt;
    return Value(Dictionary{{"CF$UID", bigEndian(content.start, static_cast<std::size_t>(size))}});
}

std::optional<Value> BinaryPropertyListReader::bytes(const Content& content, Object& object) const {
    if (!fits(content.start, content.length, 1))
        return std::nullopt;
    const std::string_view all = bytes_.substr(content.start, static_cast<std::size_t>(content.length));
    object.weight += all.size();
    if (content.kind == Data)
        return Value::data(all);
    if (std::any_of(all.begin(), all.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }))
        return std::nullopt;
    return Value(all);
}

std::optional<Value> BinaryPropertyListReader::wideString(const Content& content, Object& object) const {
    if (!fits(content.start, content.length, 2))
        return std::nullopt;
    const auto text = utf8FromUtf16(
        bytes_.substr(content.start, static_cast<std::size_t>(content.length) * 2), ByteOrder::Big);
    if (!text)
        return std::nullopt;
    object.weight += text->size();
    return Value(*text);
}

std::optional<Value> BinaryPropertyListReader::array(const Content& content, std::size_t depth,
                                                     Object& object) {
    std::vector<Value> values;
    if (!readReferences(content.start, content.length, depth, object, values))
        return std::nullopt;
    return Value(Array(std::move(values)));
}

/// All keys come first, then all values.
std::optional<Value> BinaryPropertyListReader::dictionary(const Content& content, std::size_t depth,
                                                          Object& object) {
    if (!fits(content.start, content.length, 2 * referenceSize_))
        return std::nullopt;
    std::vector<Value> keys;
    std::vector<Value> values;
    const std::size_t afterKeys = content.start + static_cast<std::size_t>(content.length) * referenceSize_;
    if (!readReferences(content.start, content.length, depth, object, keys) ||
        !readReferences(afterKeys, content.length, depth, object, values))
        return std::nullopt;
    std::vector<std::string_view> texts;
    texts.reserve(keys.size());
    for (const Value& key : keys) {
        if (!key.is(Value::Kind::String))
            return std::nullopt;
        texts.push_back(key.string());
    }
    return Value(dictionaries_.make(texts, values.data()));
}

bool BinaryPropertyListReader::readReferences(std::size_t start, std::uint64_t count, std::size_t depth,
                                              Object& object, std::vector<Value>& values) {
    if (!fits(start, count, referenceSize_) || depth > deepestPropertyList)
        return false;
    values.reserve(static_cast<std::size_t>(count));
    object.height = std::max<std::uint16_t>(object.height, 1);
    for (std::size_t i = 0; i < count; ++i) {
        const Object* element = readObject(bigEndian(start + i * referenceSize_, referenceSize_), depth + 1);
        if (!element)
            return false;
        object.weight += element->weight;
        if (object.weight > heaviest)
            return false;
        object.height =
            std::max<std::uint16_t>(object.height, static_cast<std::uint16_t>(element->height + 1));
        values.push_back(*element->value);
    }
    return true;
}

/// Returns the largest number for one that does not fit: it is neither a valid position nor a valid count.
std::uint64_t BinaryPropertyListReader::bigEndian(std::size_t at, std::size_t length) const {
    for (; length > sizeof(std::uint64_t); --length)
        if (bytes_[at++] != 0)
            return std::numeric_limits<std::uint64_t>::max();
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < length; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes_[at + i]);
    return number;
}

/// Returns whether `count` items of `size` bytes fit between `at` and the offset table.
bool BinaryPropertyListReader::fits(std::size_t at, std::uint64_t count, std::uint64_t size) const {
    return at <= table_ && count <= (table_ - at) / size;
}

} // namespace platform
