#include "platform/plist/BinaryPropertyListReader.h"

#include "platform/base/Utf8.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/plist/TextDecoding.h"

#include <algorithm>
#include <array>
#include <span>

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
    // Room for a record.
    values_.reserve(64);
    keys_.reserve(32);
    lastKeys_.reserve(4);
    const Object* top = object(topObject_, 1);
    if (!top)
        return std::nullopt;
    std::array<KeySet*, DocumentShape::mostLevels> keys{};
    for (std::size_t i = 0; i < keys.size() && i + 1 < lastKeys_.size(); ++i)
        keys[i] = lastKeys_[i + 1].keys;
    shape_->rememberOther(keys);
    return top->value.value();
}

/// Reads the last 32 bytes: six unused, the sizes of an offset and of a reference, the number of objects, the
/// top object, and the position of the offset table.
bool BinaryPropertyListReader::readTrailer() {
    if (!bytes_.starts_with(magic) || bytes_.size() < magic.size() + trailerLength)
        return false;
    const std::size_t trailer = bytes_.size() - trailerLength;
    offsetSize_ = static_cast<std::size_t>(numberAt(trailer + 6, 1));
    referenceSize_ = static_cast<std::size_t>(numberAt(trailer + 7, 1));
    objectCount_ = numberAt(trailer + 8, 8);
    topObject_ = numberAt(trailer + 16, 8);
    const std::uint64_t table = numberAt(trailer + 24, 8);
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
inline const BinaryPropertyListReader::Object* BinaryPropertyListReader::object(std::uint64_t index,
                                                                                std::size_t depth) {
    if (index >= objectCount_)
        return nullptr;
    const Object& object = objects_[static_cast<std::size_t>(index)];
    if (object.state != Object::State::Read && !readObject(index, depth))
        return nullptr;
    const bool fits = object.height == 0 || depth + object.height - 1 <= deepestPropertyList;
    return fits ? &object : nullptr;
}

bool BinaryPropertyListReader::readObject(std::uint64_t index, std::size_t depth) {
    Object& object = objects_[static_cast<std::size_t>(index)];
    const bool containsItself = object.state == Object::State::Reading;
    object.state = Object::State::Reading;
    const std::uint64_t offset =
        numberAt(table_ + static_cast<std::size_t>(index) * offsetSize_, offsetSize_);
    if (containsItself || offset < magic.size() || offset >= table_)
        return false;
    const auto content = contentAt(static_cast<std::size_t>(offset));
    object.weight = valueWeight;
    if (!content || !readContent(*content, depth, object))
        return false;
    object.state = Object::State::Read;
    return true;
}

bool BinaryPropertyListReader::readContent(const Content& content, std::size_t depth, Object& object) {
    const auto store = [&object](std::optional<Value> value) {
        if (value)
            object.value = ArenaValue(std::move(*value));
        return value.has_value();
    };
    switch (content.kind) {
    case Single:
        return store(singleByte(static_cast<std::uint8_t>(content.length)));
    case Integer:
    case Real:
    case Date:
        return store(number(content));
    case Data:
    case AsciiString:
        return readBytes(content, object);
    case Utf16String:
        return readWideString(content, object);
    case Uid:
        return readUid(content, object);
    case ArrayKind:
        return readArray(content, depth, object);
    case DictionaryKind:
        return readDictionary(content, depth, object);
    default:
        return false;
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
    content.length = numberAt(content.start + 1, lengthSize);
    content.start += 1 + lengthSize;
    return content;
}

std::optional<Value> BinaryPropertyListReader::singleByte(std::uint8_t marker) const {
    if (marker != 8 && marker != 9)
        return std::nullopt;
    return Value(marker == 9);
}

std::optional<Value> BinaryPropertyListReader::number(const Content& content) const {
    const std::size_t size = std::size_t(1) << content.length;
    if (!fits(content.start, 1, size))
        return std::nullopt;
    const std::string_view bytes = bytes_.substr(content.start, size);
    if (content.kind == Integer)
        return integerFromBytes(bytes);
    return content.kind == Real ? realFromBytes(bytes) : dateFromBytes(bytes);
}

bool BinaryPropertyListReader::readUid(const Content& content, Object& object) {
    const std::uint64_t size = content.length + 1;
    if (size > 8 || !fits(content.start, 1, size))
        return false;
    const std::string_view key = "CF$UID";
    ArenaValue number(Value(numberAt(content.start, static_cast<std::size_t>(size))));
    object.value = dictionaries_.make({&key, 1}, &number);
    object.height = 1;
    return true;
}

bool BinaryPropertyListReader::readBytes(const Content& content, Object& object) {
    if (!fits(content.start, content.length, 1))
        return false;
    const std::string_view all = bytes_.substr(content.start, static_cast<std::size_t>(content.length));
    if (content.kind == AsciiString && !isAscii(all))
        return false;
    object.weight += all.size();
    object.value = {content.kind == Data ? Value::Kind::Data : Value::Kind::String, arena_->bytes(all)};
    return true;
}

bool BinaryPropertyListReader::readWideString(const Content& content, Object& object) {
    if (!fits(content.start, content.length, 2))
        return false;
    const auto text = utf8FromUtf16(
        bytes_.substr(content.start, static_cast<std::size_t>(content.length) * 2), ByteOrder::Big);
    if (!text)
        return false;
    object.weight += text->size();
    object.value = {Value::Kind::String, arena_->bytes(*text)};
    return true;
}

bool BinaryPropertyListReader::readArray(const Content& content, std::size_t depth, Object& object) {
    const std::size_t first = values_.size();
    if (!readReferences(content.start, content.length, depth, object))
        return false;
    object.value = arena_->array(values_.data() + first, values_.size() - first);
    values_.resize(first, object.value);
    return true;
}

/// All keys come first, then all values.
bool BinaryPropertyListReader::readDictionary(const Content& content, std::size_t depth, Object& object) {
    if (!fits(content.start, content.length, 2 * referenceSize_) || depth > deepestPropertyList)
        return false;
    const std::size_t size = static_cast<std::size_t>(content.length) * referenceSize_;
    const std::string_view references = bytes_.substr(content.start, size);
    const LastKeys last = lastKeys(depth);
    const bool sameKeys = last.keys && last.references == references;
    const std::size_t firstKey = keys_.size();
    if (sameKeys)
        object.weight += last.weight;
    else if (!readKeys(references, depth, object))
        return false;
    const std::uint64_t keysWeight = sameKeys ? last.weight : object.weight - valueWeight;
    const std::size_t first = values_.size();
    if (!readReferences(content.start + size, content.length, depth, object))
        return false;
    ArenaValue* const values = values_.data() + first;
    const std::span keys = std::span(keys_).subspan(firstKey);
    object.value = sameKeys ? arena_->dictionary(*last.keys, values) : dictionaries_.make(keys, values);
    const Dictionary& dictionary = object.value.value().dictionary();
    // Where a key came twice, the references are not those of the dictionary's keys.
    if (!sameKeys && !keys.empty() && dictionary.size() == keys.size())
        lastKeys(depth) = {references, dictionary.keys().get(), keysWeight};
    keys_.resize(firstKey);
    values_.resize(first);
    return true;
}

/// Appends the keys to `keys_`.
bool BinaryPropertyListReader::readKeys(std::string_view references, std::size_t depth, Object& object) {
    const std::size_t first = values_.size();
    const std::size_t count = references.size() / referenceSize_;
    if (!readReferences(static_cast<std::size_t>(references.data() - bytes_.data()), count, depth, object))
        return false;
    for (std::size_t i = first; i < values_.size(); ++i) {
        const Value& key = values_[i].value();
        if (!key.is(Value::Kind::String))
            return false;
        keys_.push_back(key.string());
    }
    values_.resize(first);
    return true;
}

BinaryPropertyListReader::LastKeys& BinaryPropertyListReader::lastKeys(std::size_t depth) {
    if (lastKeys_.size() <= depth)
        lastKeys_.resize(depth + 1);
    return lastKeys_[depth];
}

/// Appends the objects to `values_`.
bool BinaryPropertyListReader::readReferences(std::size_t start, std::uint64_t count, std::size_t depth,
                                              Object& object) {
    if (!fits(start, count, referenceSize_) || depth > deepestPropertyList)
        return false;
    object.height = std::max<std::uint16_t>(object.height, 1);
    for (std::size_t i = 0; i < count; ++i) {
        const Object* element = this->object(numberAt(start + i * referenceSize_, referenceSize_), depth + 1);
        if (!element)
            return false;
        object.weight += element->weight;
        if (object.weight > heaviest)
            return false;
        object.height =
            std::max<std::uint16_t>(object.height, static_cast<std::uint16_t>(element->height + 1));
        values_.push_back(element->value);
    }
    return true;
}

/// Returns whether `count` items of `size` bytes fit between `at` and the offset table.
bool BinaryPropertyListReader::fits(std::size_t at, std::uint64_t count, std::uint64_t size) const {
    return at <= table_ && count <= (table_ - at) / size;
}

} // namespace platform
