#include "shell/device/DemonstrationInfo.h"

#include "platform/base/Utf8.h"
#include "platform/plist/PropertyList.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace wardlock::shell {
namespace {

using Entries = std::vector<std::pair<std::string_view, std::string_view>>;

void appendNumber(std::string& bytes, std::uint64_t number, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(number >> shift));
}

/// Appends the marker of a kind of object with its count, which is a number object of its own from 15 on.
void appendMarker(std::string& bytes, unsigned kind, std::size_t count) {
    constexpr std::size_t many = 15;
    bytes.push_back(static_cast<char>(kind << 4 | (count < many ? count : many)));
    if (count >= many) {
        bytes.push_back(0x10);
        appendNumber(bytes, count, 1);
    }
}

std::string utf16(std::string_view text) {
    std::string units;
    for (std::size_t i = 0; i < text.size();) {
        const platform::DecodedCharacter decoded = platform::decodeUtf8(text, i);
        i += decoded.length;
        if (decoded.character < 0x10000) {
            appendNumber(units, decoded.character, 2);
        } else {
            appendNumber(units, 0xD800 + ((decoded.character - 0x10000) >> 10), 2);
            appendNumber(units, 0xDC00 + ((decoded.character - 0x10000) & 0x3FF), 2);
        }
    }
    return units;
}

void appendString(std::string& bytes, std::string_view text) {
    constexpr unsigned asciiKind = 5;
    constexpr unsigned utf16Kind = 6;
    const bool isAscii =
        std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (isAscii) {
        appendMarker(bytes, asciiKind, text.size());
        bytes.append(text);
        return;
    }
    const std::string units = utf16(text);
    appendMarker(bytes, utf16Kind, units.size() / 2);
    bytes.append(units);
}

/// Returns the binary form of one dictionary of short strings: fewer than 128 objects, texts of fewer than
/// 256 units.
std::string binaryForm(const Entries& entries) {
    constexpr unsigned dictionaryKind = 13;
    constexpr int unusedTrailer = 6;
    std::string bytes = "bplist00";
    std::vector<std::size_t> offsets{bytes.size()};
    appendMarker(bytes, dictionaryKind, entries.size());
    for (std::size_t i = 0; i < 2 * entries.size(); ++i)
        appendNumber(bytes, i + 1, 1);
    const auto append = [&](std::string_view text) {
        offsets.push_back(bytes.size());
        appendString(bytes, text);
    };
    for (const auto& entry : entries)
        append(entry.first);
    for (const auto& entry : entries)
        append(entry.second);
    const std::size_t table = bytes.size();
    for (const std::size_t offset : offsets)
        appendNumber(bytes, offset, 2);
    bytes.append(unusedTrailer, '\0');
    appendNumber(bytes, 2, 1);
    appendNumber(bytes, 1, 1);
    appendNumber(bytes, offsets.size(), 8);
    appendNumber(bytes, 0, 8);
    appendNumber(bytes, table, 8);
    return bytes;
}

std::string xmlForm(const Entries& entries) {
    platform::MutableDictionary dictionary;
    for (const auto& [key, text] : entries)
        dictionary.set(key, platform::Value(text));
    return platform::dataWithPropertyList(dictionary.copy());
}

} // namespace

std::string demonstrationInfo(const DemonstrationApplication& application, std::string_view iconFile) {
    const Entries entries{
        {"CFBundleIdentifier", application.identifier},
        {"CFBundleDisplayName", application.name},
        {"CFBundleName", application.folder},
        {"CFBundleIconFile", iconFile},
        {"CFBundlePackageType", "APPL"},
        {"CFBundleShortVersionString", "1.0"},
    };
    return application.form == InfoForm::Binary ? binaryForm(entries) : xmlForm(entries);
}

} // namespace wardlock::shell
