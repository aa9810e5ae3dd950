#pragma once

#include "platform/foundation/Array.h"
#include "platform/foundation/Dictionary.h"
#include "platform/foundation/Export.h"
#include "platform/foundation/MutableArray.h"
#include "platform/foundation/MutableDictionary.h"
#include "platform/foundation/Storage.h"

#include <bit>
#include <cassert>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

/// A property-list value. Never nil: nil is a null `const Value*`, or an empty std::optional where a value is
/// returned. Immutable in all it holds; texts and containers are shared, so copies are cheap and may go to
/// other threads. A value that was moved from is false.
class WARDLOCK_API Value {
public:
    enum class Kind : std::uint8_t { Boolean, Integer, Real, String, Data, Date, Array, Dictionary };

    template <std::same_as<bool> T>
    Value(T boolean) : kind_(Kind::Boolean), bits_(boolean ? 1 : 0) {}
    template <std::integral T>
    requires(!std::same_as<T, bool>) Value(T number)
        : kind_(Kind::Integer), unsigned_(number > 0 && static_cast<std::uint64_t>(number) >> 63 != 0),
          bits_(static_cast<std::uint64_t>(number)) {}
    template <std::floating_point T>
    Value(T number) : kind_(Kind::Real), bits_(std::bit_cast<std::uint64_t>(static_cast<double>(number))) {}
    /// UTF-8. A string with any other bytes can be held, but not be written as a property list that is read
    /// back.
    Value(std::string_view text) : Value(Kind::String, ByteBlock::create(text)) {}
    Value(const std::string& text) : Value(std::string_view(text)) {}
    Value(const char* text) : Value(std::string_view(text)) {}
    Value(platform::Array array) : kind_(Kind::Array), array_(std::move(array)) {}
    Value(platform::Dictionary dictionary) : kind_(Kind::Dictionary), dictionary_(std::move(dictionary)) {}
    /// A string or data.
    Value(Kind kind, Reference<ByteBlock> bytes) : kind_(kind), bytes_(std::move(bytes)) {}
    Value(const void*) = delete;
    Value(std::nullptr_t) = delete;
    static Value data(std::string_view bytes) { return {Kind::Data, ByteBlock::create(bytes)}; }
    /// Seconds since 2001-01-01T00:00:00Z.
    static Value date(double seconds);

    Value(const Value& other);
    Value(Value&& other) noexcept;
    Value& operator=(const Value& other);
    Value& operator=(Value&& other) noexcept;
    ~Value() { destroy(); }

    Kind kind() const { return kind_; }
    bool is(Kind kind) const { return kind_ == kind; }

    /// The content; each only of a value of that kind.
    bool boolean() const;
    /// Not of a number above the largest signed one.
    std::int64_t integer() const;
    /// Whether the integer is above the largest signed one.
    bool isUnsigned() const;
    /// Not of a negative number.
    std::uint64_t unsignedInteger() const;
    double real() const;
    std::string_view string() const;
    std::string_view data() const;
    double date() const;
    const platform::Array& array() const;
    const platform::Dictionary& dictionary() const;

    /// Same kind and content. Dictionaries compare whatever their order; a NaN equals a NaN.
    bool operator==(const Value& other) const;

private:
    friend class ContainerBlock;

    std::string_view bytes() const { return bytes_ ? bytes_->bytes() : std::string_view(); }
    /// Takes the shared elements out of a container, which becomes empty; null for none and for other kinds.
    ContainerBlock* detachContainer();
    void copyFrom(const Value& other);
    void moveFrom(Value& other) noexcept;
    void destroy();

    Kind kind_;
    bool unsigned_ = false;
    union {
        /// Boolean, integer, real, date.
        std::uint64_t bits_;
        /// String, data.
        Reference<ByteBlock> bytes_;
        platform::Array array_;
        platform::Dictionary dictionary_;
    };
};

static_assert(sizeof(Value) == 16);

/// The platform's readings, tolerant of nil and of other kinds. Numbers by their value; strings by their
/// beginning: "YES", "true", digits. Everything else reads as false and as 0.
bool boolValue(const Value* value);
WARDLOCK_API float floatValue(const Value* value);
/// Null, or none, for nil and for another kind.
WARDLOCK_API const Array* arrayValue(const Value* value);
WARDLOCK_API const Dictionary* dictionaryValue(const Value* value);
WARDLOCK_API std::optional<std::string_view> stringValue(const Value* value);

/// boolValue() of what is no boolean.
WARDLOCK_API bool boolValueOfOther(const Value& value);
inline bool boolValue(const Value* value) {
    if (!value)
        return false;
    return value->is(Value::Kind::Boolean) ? value->boolean() : boolValueOfOther(*value);
}

inline bool Value::boolean() const {
    assert(kind_ == Kind::Boolean);
    return bits_ != 0;
}
inline std::int64_t Value::integer() const {
    assert(kind_ == Kind::Integer && !unsigned_);
    return static_cast<std::int64_t>(bits_);
}
inline bool Value::isUnsigned() const {
    assert(kind_ == Kind::Integer);
    return unsigned_;
}
inline std::uint64_t Value::unsignedInteger() const {
    assert(kind_ == Kind::Integer && (unsigned_ || static_cast<std::int64_t>(bits_) >= 0));
    return bits_;
}
inline double Value::real() const {
    assert(kind_ == Kind::Real);
    return std::bit_cast<double>(bits_);
}
inline std::string_view Value::string() const {
    assert(kind_ == Kind::String);
    return bytes();
}
inline std::string_view Value::data() const {
    assert(kind_ == Kind::Data);
    return bytes();
}
inline double Value::date() const {
    assert(kind_ == Kind::Date);
    return std::bit_cast<double>(bits_);
}
inline const Array& Value::array() const {
    assert(kind_ == Kind::Array);
    return array_;
}
inline const Dictionary& Value::dictionary() const {
    assert(kind_ == Kind::Dictionary);
    return dictionary_;
}

inline void Value::copyFrom(const Value& other) {
    kind_ = other.kind_;
    unsigned_ = other.unsigned_;
    if (kind_ == Kind::Array)
        new (&array_) platform::Array(other.array_);
    else if (kind_ == Kind::Dictionary)
        new (&dictionary_) platform::Dictionary(other.dictionary_);
    else if (kind_ == Kind::String || kind_ == Kind::Data)
        new (&bytes_) Reference<ByteBlock>(other.bytes_);
    else
        bits_ = other.bits_;
}
inline void Value::moveFrom(Value& other) noexcept {
    kind_ = other.kind_;
    unsigned_ = other.unsigned_;
    if (kind_ == Kind::Array)
        new (&array_) platform::Array(std::move(other.array_));
    else if (kind_ == Kind::Dictionary)
        new (&dictionary_) platform::Dictionary(std::move(other.dictionary_));
    else if (kind_ == Kind::String || kind_ == Kind::Data)
        new (&bytes_) Reference<ByteBlock>(std::move(other.bytes_));
    else
        bits_ = other.bits_;
    other.destroy();
    other.kind_ = Kind::Boolean;
    other.unsigned_ = false;
    other.bits_ = 0;
}
inline void Value::destroy() {
    if (kind_ == Kind::Array)
        array_.~Array();
    else if (kind_ == Kind::Dictionary)
        dictionary_.~Dictionary();
    else if (kind_ == Kind::String || kind_ == Kind::Data)
        bytes_.~Reference();
}
inline ContainerBlock* Value::detachContainer() {
    if (kind_ == Kind::Array)
        return array_.block_.detach();
    return kind_ == Kind::Dictionary ? dictionary_.block_.detach() : nullptr;
}
inline Value::Value(const Value& other) {
    copyFrom(other);
}
inline Value::Value(Value&& other) noexcept {
    moveFrom(other);
}

} // namespace platform
