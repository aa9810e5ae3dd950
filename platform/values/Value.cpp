#include "platform/values/Value.h"

#include <cmath>
#include <vector>

namespace platform {

static_assert(sizeof(Value) == 16);

namespace {

bool sameNumber(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

using Pairs = std::vector<std::pair<const Value*, const Value*>>;

/// Compares two containers of one kind except for their values, which it appends to `pairs`.
bool pairUp(const Array& a, const Array& b, Pairs& pairs) {
    if (a.isSameObject(b))
        return true;
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        pairs.emplace_back(&a[i], &b[i]);
    return true;
}

bool pairUp(const Dictionary& a, const Dictionary& b, Pairs& pairs) {
    if (a.isSameObject(b))
        return true;
    if (a.size() != b.size())
        return false;
    for (const auto& [key, value] : a) {
        const Value* other = b.find(key);
        if (!other)
            return false;
        pairs.emplace_back(&value, other);
    }
    return true;
}

bool sameOutside(const Value& a, const Value& b, Pairs& pairs) {
    if (a.kind() != b.kind())
        return false;
    switch (a.kind()) {
    case Value::Kind::Boolean:
        return a.boolean() == b.boolean();
    case Value::Kind::Integer:
        if (a.isUnsigned() || b.isUnsigned())
            return a.isUnsigned() && b.isUnsigned() && a.unsignedInteger() == b.unsignedInteger();
        return a.integer() == b.integer();
    case Value::Kind::Real:
        return sameNumber(a.real(), b.real());
    case Value::Kind::String:
        return a.string() == b.string();
    case Value::Kind::Data:
        return a.data() == b.data();
    case Value::Kind::Date:
        return sameNumber(a.date(), b.date());
    case Value::Kind::Array:
        return pairUp(a.array(), b.array(), pairs);
    case Value::Kind::Dictionary:
        return pairUp(a.dictionary(), b.dictionary(), pairs);
    }
    return false;
}

} // namespace

Value Value::date(double seconds) {
    Value value(seconds);
    value.kind_ = Kind::Date;
    return value;
}

Value::Value(const Value& other) : kind_(other.kind_), unsigned_(other.unsigned_) {
    if (kind_ == Kind::Array)
        new (&array_) platform::Array(other.array_);
    else if (kind_ == Kind::Dictionary)
        new (&dictionary_) platform::Dictionary(other.dictionary_);
    else if (kind_ == Kind::String || kind_ == Kind::Data)
        new (&bytes_) IntrusivePointer<ByteBlock>(other.bytes_);
    else
        bits_ = other.bits_;
}

Value& Value::operator=(const Value& other) {
    return *this = Value(other);
}

Value& Value::operator=(Value&& other) noexcept {
    if (this != &other) {
        // The old content goes last: `other` may be inside it.
        const Value old(std::move(*this));
        moveFrom(other);
    }
    return *this;
}

bool Value::operator==(const Value& other) const {
    // The pairs left to compare: a list, so that the nesting takes no stack.
    Pairs pairs;
    if (!sameOutside(*this, other, pairs))
        return false;
    while (!pairs.empty()) {
        const auto [a, b] = pairs.back();
        pairs.pop_back();
        if (!sameOutside(*a, *b, pairs))
            return false;
    }
    return true;
}

const Array* arrayValue(const Value* value) {
    return value && value->is(Value::Kind::Array) ? &value->array() : nullptr;
}

const Dictionary* dictionaryValue(const Value* value) {
    return value && value->is(Value::Kind::Dictionary) ? &value->dictionary() : nullptr;
}

std::optional<std::string_view> stringValue(const Value* value) {
    if (!value || !value->is(Value::Kind::String))
        return std::nullopt;
    return value->string();
}

} // namespace platform
