#include "platform/versions/Version.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <cstring>
#include <tuple>

namespace platform {

namespace {

constexpr std::string_view ending = ".plist";
constexpr std::size_t numberDigits = 10;
constexpr std::size_t timeDigits = 13;
constexpr std::size_t processDigits = 8;
constexpr std::size_t digestDigits = 16;
constexpr std::size_t longestPlace = 16;
constexpr std::int64_t latestTime = 9'999'999'999'999;
constexpr int decimal = 10;
constexpr int hexadecimal = 16;

constexpr std::array<std::pair<VersionAction, std::string_view>, 4> actions = {
    {{VersionAction::Change, "change"},
     {VersionAction::Undo, "undo"},
     {VersionAction::Redo, "redo"},
     {VersionAction::Restore, "restore"}}};

std::string padded(std::uint64_t number, std::size_t digits, int base) {
    char text[20];
    const char* end = std::to_chars(text, text + sizeof text, number, base).ptr;
    std::string result(text, static_cast<std::size_t>(end - text));
    result.insert(0, digits - std::min(digits, result.size()), '0');
    return result;
}

template <std::integral Number>
bool read(std::string_view text, std::size_t digits, int base, Number& number) {
    if (text.size() != digits || text.starts_with('-'))
        return false;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    return error == std::errc() && end == text.data() + text.size();
}

/// Removes the text up to the next "-" and returns it.
std::string_view nextPart(std::string_view& rest) {
    const std::string_view part = rest.substr(0, rest.find('-'));
    rest.remove_prefix(std::min(part.size() + 1, rest.size()));
    return part;
}

bool readAction(std::string_view text, VersionOrigin& origin) {
    for (const auto& [action, name] : actions) {
        if (!text.starts_with(name))
            continue;
        const std::string_view number = text.substr(name.size());
        origin.action = action;
        if (action == VersionAction::Change)
            return number.empty();
        return !number.empty() && number.size() <= numberDigits &&
               read(number, number.size(), decimal, origin.of);
    }
    return false;
}

} // namespace

std::string Version::name() const {
    std::string text = padded(number, numberDigits, decimal);
    const std::int64_t when = std::clamp<std::int64_t>(time, 0, latestTime);
    text += '-' + padded(static_cast<std::uint64_t>(when), timeDigits, decimal);
    text += '-' + origin.place + '-' + padded(origin.process, processDigits, hexadecimal) + '-';
    for (const auto& [action, name] : actions)
        if (action == origin.action)
            text += name;
    if (origin.action != VersionAction::Change)
        text += std::to_string(origin.of);
    text += '-' + padded(digest, digestDigits, hexadecimal);
    return text.append(ending);
}

std::optional<Version> Version::ofName(std::string_view name) {
    if (!name.ends_with(ending))
        return std::nullopt;
    name.remove_suffix(ending.size());
    Version version;
    if (!read(nextPart(name), numberDigits, decimal, version.number) ||
        !read(nextPart(name), timeDigits, decimal, version.time))
        return std::nullopt;
    version.origin.place = nextPart(name);
    if (!isVersionPlace(version.origin.place) ||
        !read(nextPart(name), processDigits, hexadecimal, version.origin.process) ||
        !readAction(nextPart(name), version.origin) || !read(name, digestDigits, hexadecimal, version.digest))
        return std::nullopt;
    return version;
}

bool Version::isLikeName(std::string_view text) {
    constexpr std::size_t timeEnd = numberDigits + 1 + timeDigits;
    if (text.size() <= timeEnd || !text.ends_with(ending))
        return false;
    for (std::size_t i = 0; i < timeEnd; ++i)
        if (i == numberDigits ? text[i] != '-' : text[i] < '0' || text[i] > '9')
            return false;
    return text[timeEnd] == '-';
}

std::string_view Version::timeOfName(std::string_view name) {
    return name.substr(numberDigits + 1, timeDigits);
}

bool isOlder(const Version& one, const Version& other) {
    return std::tie(one.number, one.time) != std::tie(other.number, other.time)
               ? std::tie(one.number, one.time) < std::tie(other.number, other.time)
               : one.name() < other.name();
}

std::uint64_t versionDigest(std::string_view bytes) {
    // FNV-1a with words instead of bytes, whose high bits a shift spreads. Every write needs the digests of
    // two documents. Four that do not wait for each other, each of every fourth word, take little time.
    using Words = std::array<std::uint64_t, 4>;
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
    const auto add = [](std::uint64_t& digest, std::uint64_t word) {
        digest = (digest ^ word) * factor;
        digest ^= digest >> 32;
    };
    Words digests{1, 2, 3, 4};
    std::uint64_t whole = bytes.size();
    while (!bytes.empty()) {
        // The last words are filled up with zeros; the length distinguishes them from zeros of the document.
        Words words{};
        const std::size_t taken = std::min(bytes.size(), sizeof words);
        std::memcpy(words.data(), bytes.data(), taken);
        for (std::size_t i = 0; i < words.size(); ++i)
            add(digests[i], words[i]);
        bytes.remove_prefix(taken);
    }
    for (const std::uint64_t digest : digests)
        add(whole, digest);
    return whole;
}

bool isVersionPlace(std::string_view text) {
    return !text.empty() && text.size() <= longestPlace &&
           std::ranges::all_of(text, [](char letter) { return letter >= 'a' && letter <= 'z'; });
}

} // namespace platform
