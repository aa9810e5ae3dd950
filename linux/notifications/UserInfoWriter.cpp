#include "linux/notifications/UserInfoWriter.h"

#include "linux/bus/BusText.h"
#include "linux/notifications/NotificationFormat.h"
#include "platform/plist/PropertyListBounds.h"

#include <algorithm>
#include <cstdint>
#include <variant>
#include <vector>

namespace platform::notifications {

namespace {

/// The most that a value and a key cost beside their text or bytes: signature, length, padding.
constexpr std::size_t bytesOfAnyValue = 24;
constexpr std::size_t bytesOfAnyKey = 16;

bool hasOnlyBusKeys(const Dictionary& dictionary) {
    return std::all_of(dictionary.begin(), dictionary.end(),
                       [](const DictionaryEntry& entry) { return bus::isBusText(entry.key); });
}

/// The elements of a container that are still to be written.
struct ArrayRest {
    const Value* next;
    const Value* end;
};
struct DictionaryRest {
    DictionaryIterator next;
    DictionaryIterator end;
};
using Rest = std::variant<ArrayRest, DictionaryRest>;

bool isContainer(const Value& value) {
    return value.is(Value::Kind::Array) || value.is(Value::Kind::Dictionary);
}

void enter(const Value& value, std::vector<Rest>& open) {
    if (value.is(Value::Kind::Array))
        open.emplace_back(ArrayRest{value.array().begin(), value.array().end()});
    else if (value.is(Value::Kind::Dictionary))
        open.emplace_back(DictionaryRest{value.dictionary().begin(), value.dictionary().end()});
}

} // namespace

bool UserInfoWriter::write(const Dictionary& userInfo) {
    return writeDictionary(userInfo, 1);
}

bool UserInfoWriter::writeValue(const Value& value, int level) {
    switch (value.kind()) {
    case Value::Kind::Array:
        return writeArray(value.array(), level);
    case Value::Kind::Dictionary:
        return writeDictionary(value.dictionary(), level);
    default:
        return writeScalar(value);
    }
}

bool UserInfoWriter::writeArray(const Array& array, int level) {
    if (level > format::nestedLevels)
        return writeFlattened(array, level);
    if (!account() || !open('v', "av") || !open('a', "v"))
        return false;
    for (const Value& value : array) {
        if (!writeValue(value, level + 1))
            return false;
    }
    return close() && close();
}

bool UserInfoWriter::writeDictionary(const Dictionary& dictionary, int level) {
    if (level > format::nestedLevels || !hasOnlyBusKeys(dictionary))
        return writeFlattened(dictionary, level);
    if (!account() || !open('v', "a{sv}") || !open('a', "{sv}"))
        return false;
    bytes_ += dictionary.size() * bytesOfAnyKey;
    for (const auto& [key, value] : dictionary) {
        if (!open('e', "sv") || !writeText(key) || !writeValue(value, level + 1) || !close())
            return false;
    }
    return close() && close();
}

bool UserInfoWriter::writeScalar(const Value& value) {
    if (!account())
        return false;
    switch (value.kind()) {
    case Value::Kind::Boolean: {
        const int boolean = value.boolean() ? 1 : 0;
        return open('v', "b") && appendBasic('b', &boolean) && close();
    }
    case Value::Kind::Integer:
        if (value.isUnsigned()) {
            const std::uint64_t number = value.unsignedInteger();
            return open('v', "t") && appendBasic('t', &number) && close();
        } else {
            const std::int64_t number = value.integer();
            return open('v', "x") && appendBasic('x', &number) && close();
        }
    case Value::Kind::Real: {
        const double real = value.real();
        return open('v', "d") && appendBasic('d', &real) && close();
    }
    case Value::Kind::Date: {
        const double seconds = value.date();
        return open('v', "(d)") && open('r', "d") && appendBasic('d', &seconds) && close() && close();
    }
    case Value::Kind::Data:
        return open('v', "ay") && writeBytes(value.data()) && close();
    default:
        if (bus::isBusText(value.string()))
            return open('v', "s") && writeText(value.string()) && close();
        return open('v', "(ay)") && open('r', "ay") && writeBytes(value.string()) && close() && close();
    }
}

bool UserInfoWriter::writeFlattened(const Value& value, int level) {
    const std::size_t levels = deepestPropertyList - static_cast<std::size_t>(level - 1);
    if (!open('v', "(av)") || !open('r', "av") || !open('a', "v") || !writeToken(value))
        return false;
    std::vector<Rest> containers;
    enter(value, containers);
    while (!containers.empty()) {
        const Value* next = nullptr;
        if (auto* array = std::get_if<ArrayRest>(&containers.back())) {
            if (array->next != array->end)
                next = array->next++;
        } else if (auto* dictionary = std::get_if<DictionaryRest>(&containers.back());
                   dictionary->next != dictionary->end) {
            const DictionaryEntry entry = *dictionary->next++;
            next = &entry.value;
            if (!writeScalar(entry.key))
                return false;
        }
        if (!next) {
            containers.pop_back();
            continue;
        }
        if ((isContainer(*next) && containers.size() >= levels) || !writeToken(*next))
            return false;
        enter(*next, containers);
    }
    return close() && close() && close();
}

bool UserInfoWriter::writeToken(const Value& value) {
    if (!isContainer(value))
        return writeScalar(value);
    const bool isArray = value.is(Value::Kind::Array);
    const auto count = static_cast<std::uint32_t>(isArray ? value.array().size() : value.dictionary().size());
    return account() && open('v', "(su)") && open('r', "su") &&
           writeText(isArray ? format::array : format::dictionary) && appendBasic('u', &count) && close() &&
           close();
}

bool UserInfoWriter::writeText(std::string_view text) {
    char* space = nullptr;
    bytes_ += text.size();
    if (bytes_ > format::mostBytes || sd_bus_message_append_string_space(message_, text.size(), &space) < 0)
        return false;
    text.copy(space, text.size());
    return true;
}

bool UserInfoWriter::writeBytes(std::string_view bytes) {
    bytes_ += bytes.size();
    return bytes_ <= format::mostBytes &&
           sd_bus_message_append_array(message_, 'y', bytes.data(), bytes.size()) >= 0;
}

bool UserInfoWriter::account() {
    ++values_;
    bytes_ += bytesOfAnyValue;
    return values_ <= format::mostValues && bytes_ <= format::mostBytes;
}

bool UserInfoWriter::open(char type, const char* contents) {
    return sd_bus_message_open_container(message_, type, contents) >= 0;
}

bool UserInfoWriter::close() {
    return sd_bus_message_close_container(message_) >= 0;
}

bool UserInfoWriter::appendBasic(char type, const void* value) {
    return sd_bus_message_append_basic(message_, type, value) >= 0;
}

} // namespace platform::notifications
