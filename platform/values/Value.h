#pragma once

#include "../base/Export.h"
#include "Array.h"
#include "Dictionary.h"
#include "MutableArray.h"
#include "MutableDictionary.h"
#include "Storage.h"

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
/// returned. Immutable in all it contains. Texts and containers are shared, so copies are cheap and may go to
/// other threads. A moved-from value is false.
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
    /// UTF-8. Other bytes are kept, but written to a document as U+FFFD.
    Value(std::string_view text) : Value(Kind::String, ByteBlock::create(text)) {}
    Value(const std::string& text) : Value(std::string_view(text)) {}
    Value(const char* text) : Value(std::string_view(text)) {}
    Value(platform::Array array) : kind_(Kind::Array), array_(std::move(array)) {}
    Value(platform::Dictionary dictionary) : kind_(Kind::Dictionary), dictionary_(std::move(dictionary)) {}
    /// A string or data.
    Value(Kind kind, IntrusivePointer<ByteBlock> bytes) : kind_(kind), bytes_(std::move(bytes)) {}
    Value(const void*) = delete;
    static Value data(std::string_view bytes) { return {Kind::Data, ByteBlock::create(bytes)}; }
    /// Seconds since 2001-01-01T00:00:00Z.
    static Value date(double seconds);

    Value(const Value& other);
    Value(Value&& other) noexcept { moveFrom(other); }
    Value& operator=(const Value& other);
    Value& operator=(Value&& other) noexcept;
    ~Value() { destroy(); }

    Kind kind() const { return kind_; }
    bool is(Kind kind) const { return kind_ == kind; }

    /// The content; each function only for a value of that kind.
    bool boolean() const { return content(Kind::Boolean).bits_ != 0; }
    /// Not for a number above the largest signed one.
    std::int64_t integer() const {
        assert(!isUnsigned());
        return static_cast<std::int64_t>(bits_);
    }
    /// Returns whether the integer is above the largest signed one.
    bool isUnsigned() const { return content(Kind::Integer).unsigned_; }
    /// Not for a negative number.
    std::uint64_t unsignedInteger() const {
        assert(isUnsigned() || integer() >= 0);
        return bits_;
    }
    double real() const { return std::bit_cast<double>(content(Kind::Real).bits_); }
    std::string_view string() const { return content(Kind::String).bytes(); }
    std::string_view data() const { return content(Kind::Data).bytes(); }
    double date() const { return std::bit_cast<double>(content(Kind::Date).bits_); }
    const platform::Array& array() const { return content(Kind::Array).array_; }
    const platform::Dictionary& dictionary() const { return content(Kind::Dictionary).dictionary_; }

    /// Compares kind and content: dictionaries in any order; a NaN equals a NaN.
    bool operator==(const Value& other) const;

private:
    friend class ContainerBlock;

    const Value& content([[maybe_unused]] Kind kind) const {
        assert(kind_ == kind);
        return *this;
    }
    std::string_view bytes() const { return bytes_ ? bytes_->bytes() : std::string_view(); }
    /// Takes the shared elements out of a container, which becomes empty; null for other kinds.
    ContainerBlock* detachContainer();
    void moveFrom(Value& other) noexcept;
    void destroy();

    Kind kind_;
    bool unsigned_ = false;
    union {
        /// Boolean, integer, real, date.
        std::uint64_t bits_;
        /// String, data.
        IntrusivePointer<ByteBlock> bytes_;
        platform::Array array_;
        platform::Dictionary dictionary_;
    };
};

/// The platform's conversions of nil and all kinds. Numbers convert by their value; strings by their
/// beginning: "YES", "true", digits. Everything else reads as false and as 0.
WARDLOCK_API bool boolValueOfOther(const Value& value);
inline bool boolValue(const Value* value) {
    return value && (value->is(Value::Kind::Boolean) ? value->boolean() : boolValueOfOther(*value));
}
WARDLOCK_API float floatValue(const Value* value);
/// Returns null, or nothing, for nil and for another kind.
WARDLOCK_API const Array* arrayValue(const Value* value);
WARDLOCK_API const Dictionary* dictionaryValue(const Value* value);
WARDLOCK_API std::optional<std::string_view> stringValue(const Value* value);

inline void Value::moveFrom(Value& other) noexcept {
    kind_ = other.kind_;
    unsigned_ = other.unsigned_;
    if (kind_ == Kind::Array)
        new (&array_) platform::Array(std::move(other.array_));
    else if (kind_ == Kind::Dictionary)
        new (&dictionary_) platform::Dictionary(std::move(other.dictionary_));
    else if (kind_ == Kind::String || kind_ == Kind::Data)
        new (&bytes_) IntrusivePointer<ByteBlock>(std::move(other.bytes_));
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
        bytes_.~IntrusivePointer();
}
inline ContainerBlock* Value::detachContainer() {
    if (kind_ == Kind::Array)
        return array_.block_.detach();
    return kind_ == Kind::Dictionary ? dictionary_.block_.detach() : nullptr;
}

} // namespace platform
