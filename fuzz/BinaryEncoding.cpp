#include "fuzz/BinaryEncoding.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <vector>

namespace wardlock::fuzz {

using platform::Value;

namespace {

std::string bigEndian(std::uint64_t number, int length) {
    std::string bytes;
    for (int shift = 8 * (length - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(shift < 64 ? number >> shift & 0xff : 0);
    return bytes;
}

/// Returns the beginning of an object: its kind and its number of elements.
std::string marker(int kind, std::size_t count) {
    if (count < 15)
        return std::string(1, static_cast<char>(kind << 4 | static_cast<int>(count)));
    return std::string(1, static_cast<char>(kind << 4 | 15)) + '\x13' + bigEndian(count, 8);
}

std::uint32_t takeCharacter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0x80 ? 1 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
    std::uint32_t character = length == 1 ? first : first & (0x7fu >> length);
    for (std::size_t i = 1; i < length; ++i)
        character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3fu);
    text.remove_prefix(length);
    return character;
}

std::string textObject(std::string_view text) {
    if (std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return marker(5, text.size()) + std::string(text);
    std::string units;
    while (!text.empty()) {
        const std::uint32_t character = takeCharacter(text);
        if (character < 0x10000)
            units += bigEndian(character, 2);
        else
            units += bigEndian(0xd800 + ((character - 0x10000) >> 10), 2) +
                     bigEndian(0xdc00 + ((character - 0x10000) & 0x3ff), 2);
    }
    return marker(6, units.size() / 2) + units;
}

std::string integerObject(const Value& value) {
    constexpr std::uint64_t largestSigned = std::numeric_limits<std::int64_t>::max();
    if (!value.isUnsigned())
        return '\x13' + bigEndian(static_cast<std::uint64_t>(value.integer()), 8);
    const std::uint64_t number = value.unsignedInteger();
    return number <= largestSigned ? '\x13' + bigEndian(number, 8) : '\x14' + bigEndian(number, 16);
}

/// The objects of one document; references and offsets take eight bytes.
class Encoder {
public:
    /// Adds a value; returns the number of its object.
    std::uint64_t add(const Value& value) {
        switch (value.kind()) {
        case Value::Kind::Boolean:
            return append(std::string(1, value.boolean() ? '\x09' : '\x08'));
        case Value::Kind::Integer:
            return append(integerObject(value));
        case Value::Kind::Real:
            return append('\x23' + bigEndian(std::bit_cast<std::uint64_t>(value.real()), 8));
        case Value::Kind::Date:
            return append('\x33' + bigEndian(std::bit_cast<std::uint64_t>(value.date()), 8));
        case Value::Kind::Data:
            return append(marker(4, value.data().size()) + std::string(value.data()));
        case Value::Kind::String:
            return append(textObject(value.string()));
        case Value::Kind::Array:
            return addArray(value.array());
        case Value::Kind::Dictionary:
            return addDictionary(value.dictionary());
        }
        return 0;
    }

    std::string document(std::uint64_t top) const {
        std::string bytes = "bplist00";
        std::string table;
        for (const std::string& object : objects_) {
            table += bigEndian(bytes.size(), 8);
            bytes += object;
        }
        const std::uint64_t tableAt = bytes.size();
        return bytes + table + std::string(6, '\0') + "\x08\x08" + bigEndian(objects_.size(), 8) +
               bigEndian(top, 8) + bigEndian(tableAt, 8);
    }

private:
    std::uint64_t append(std::string object) {
        objects_.push_back(std::move(object));
        return objects_.size() - 1;
    }
    std::uint64_t addArray(const platform::Array& array) {
        std::string object = marker(0xa, array.size());
        for (const Value& element : array)
            object += bigEndian(add(element), 8);
        return append(object);
    }
    std::uint64_t addDictionary(const platform::Dictionary& dictionary) {
        std::string keys = marker(0xd, dictionary.size());
        std::string values;
        for (const auto& [key, element] : dictionary) {
            keys += bigEndian(append(textObject(key)), 8);
            values += bigEndian(add(element), 8);
        }
        return append(keys + values);
    }

    std::vector<std::string> objects_;
};

} // namespace

std::string binaryPropertyList(const Value& value) {
    Encoder encoder;
    const std::uint64_t top = encoder.add(value);
    return encoder.document(top);
}

} // namespace wardlock::fuzz
