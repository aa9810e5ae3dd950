#include "platform/plist/BinaryPropertyListReader.h"

#include "platform/base/Utf8.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/plist/TextDecoding.h"

#include <algorithm>
#include <span>

namespace platform {

namespace {

/// A value's weight is about its share of an XML document. The whole may weigh a hundred times what any
/// settings need.
constexpr std::uint64_t valueWeight = 64;
constexpr std::uint64_t heaviest = std::uint64_t(256) << 20;

} // namespace

std::optional<Value> BinaryPropertyListReader::read() {
    if (!table_.readTrailer())
        return std::nullopt;
    objects_.resize(static_cast<std::size_t>(table_.objectCount()));
    // Room for a record.
    values_.reserve(64);
    keys_.reserve(32);
    lastKeys_.reserve(4);
    const Object* top = object(table_.topObject(), 1);
    if (!top)
        return std::nullopt;
    rememberShape();
    return top->value.value();
}

/// The next reader expects the last dictionary of each depth.
void BinaryPropertyListReader::rememberShape() const {
    const auto isExpected = [](const LastKeys& last) { return last.expected || !last.keys; };
    if (std::ranges::all_of(lastKeys_, isExpected))
        return;
    std::vector<DocumentShape::Level> levels;
    for (std::size_t depth = 1; depth < lastKeys_.size() && depth <= DocumentShape::mostLevels; ++depth) {
        const LastKeys& last = lastKeys_[depth];
        levels.push_back({IntrusivePointer<KeySet>::share(last.keys), {}, {}});
        if (last.keys)
            levels.back().run = BinaryKeyRun::of(table_, last.references);
    }
    const auto isSame = [](const DocumentShape::Level& a, const DocumentShape::Level& b) {
        return a.keys == b.keys && a.run == b.run;
    };
    if (!std::ranges::equal(levels, shape_->levels(), isSame))
        DocumentShape::remember(std::make_shared<DocumentShape>(levels));
}

/// Returns null when the object is invalid, contains itself, or is nested too deeply.
inline const BinaryPropertyListReader::Object* BinaryPropertyListReader::object(std::uint64_t index,
                                                                                std::size_t depth) {
    if (index >= table_.objectCount())
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
    const auto content = table_.contentOf(index);
    object.weight = valueWeight;
    if (containsItself || !content || !readContent(*content, depth, object))
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

std::optional<Value> BinaryPropertyListReader::singleByte(std::uint8_t marker) const {
    if (marker != 8 && marker != 9)
        return std::nullopt;
    return Value(marker == 9);
}

std::optional<Value> BinaryPropertyListReader::number(const Content& content) const {
    const std::size_t size = std::size_t(1) << content.length;
    if (!table_.fits(content.start, 1, size))
        return std::nullopt;
    const std::string_view bytes = table_.bytes(content.start, size);
    if (content.kind == Integer)
        return integerFromBytes(bytes);
    return content.kind == Real ? realFromBytes(bytes) : dateFromBytes(bytes);
}

bool BinaryPropertyListReader::readUid(const Content& content, Object& object) {
    const std::uint64_t size = content.length + 1;
    if (size > 8 || !table_.fits(content.start, 1, size))
        return false;
    const std::string_view key = "CF$UID";
    ArenaValue number(Value(table_.numberAt(content.start, static_cast<std::size_t>(size))));
    object.value = dictionaries_.make({&key, 1}, &number);
    object.height = 1;
    return true;
}

bool BinaryPropertyListReader::readBytes(const Content& content, Object& object) {
    if (!table_.fits(content.start, content.length, 1))
        return false;
    const std::string_view all = table_.bytes(content.start, content.length);
    if (content.kind == AsciiString && !isAscii(all))
        return false;
    object.weight += all.size();
    object.value = {content.kind == Data ? Value::Kind::Data : Value::Kind::String, arena_->bytes(all)};
    return true;
}

bool BinaryPropertyListReader::readWideString(const Content& content, Object& object) {
    if (!table_.fits(content.start, content.length, 2))
        return false;
    const auto text = utf8FromUtf16(table_.bytes(content.start, content.length * 2), ByteOrder::Big);
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
    if (!table_.fits(content.start, content.length, 2 * table_.referenceSize()) ||
        depth > deepestPropertyList)
        return false;
    const std::size_t size = content.length * table_.referenceSize();
    const std::string_view references = table_.bytes(content.start, size);
    const bool sameKeys = repeatsKeys(content, depth, references);
    const LastKeys last = lastKeys(depth);
    const std::size_t firstKey = keys_.size();
    if (sameKeys)
        object.weight += last.weight;
    else if (!readKeys(content, depth, object))
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
        lastKeys(depth) = {references, dictionary.keys(), keysWeight, false};
    keys_.resize(firstKey);
    values_.resize(first);
    return true;
}

/// Returns whether the keys are those of the last dictionary of this depth, or in the last document.
inline bool BinaryPropertyListReader::repeatsKeys(const Content& content, std::size_t depth,
                                                  std::string_view references) {
    LastKeys& last = lastKeys(depth);
    if (last.keys && last.references == references)
        return true;
    if (depth > shape_->levels().size())
        return false;
    const auto& [keys, leadIns, run] = shape_->levels()[depth - 1];
    if (!keys || keys->size() != content.length || !run.isIn(table_, references))
        return false;
    last = {references, keys.get(), keys->size() * valueWeight + keys->text().size(), true};
    return true;
}

/// Appends the keys to `keys_`.
bool BinaryPropertyListReader::readKeys(const Content& content, std::size_t depth, Object& object) {
    const std::size_t size = table_.referenceSize();
    object.height = 1;
    for (std::size_t i = 0; i < content.length; ++i) {
        const auto key = keyAt(table_.numberAt(content.start + i * size, size), depth + 1);
        if (!key)
            return false;
        keys_.push_back(*key);
        object.weight += valueWeight + key->size();
        if (object.weight > heaviest)
            return false;
    }
    return true;
}

/// Returns the string at an index of the table; nothing for another kind of object.
std::optional<std::string_view> BinaryPropertyListReader::keyAt(std::uint64_t index, std::size_t depth) {
    if (index >= table_.objectCount())
        return std::nullopt;
    // Most keys are never a value: their text is used where it is.
    if (const auto content = table_.contentOf(index); content && content->kind == AsciiString) {
        if (!table_.fits(content->start, content->length, 1))
            return std::nullopt;
        const std::string_view text = table_.bytes(content->start, content->length);
        return isAscii(text) ? std::optional(text) : std::nullopt;
    }
    const Object* const key = object(index, depth);
    const bool isString = key && key->value.value().is(Value::Kind::String);
    return isString ? std::optional(key->value.value().string()) : std::nullopt;
}

BinaryPropertyListReader::LastKeys& BinaryPropertyListReader::lastKeys(std::size_t depth) {
    if (lastKeys_.size() <= depth)
        lastKeys_.resize(depth + 1);
    return lastKeys_[depth];
}

/// Appends the objects to `values_`.
bool BinaryPropertyListReader::readReferences(std::size_t start, std::uint64_t count, std::size_t depth,
                                              Object& object) {
    if (!table_.fits(start, count, table_.referenceSize()) || depth > deepestPropertyList)
        return false;
    object.height = std::max<std::uint16_t>(object.height, 1);
    for (std::size_t i = 0; i < count; ++i) {
        const Object* element = this->object(
            table_.numberAt(start + i * table_.referenceSize(), table_.referenceSize()), depth + 1);
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

} // namespace platform
