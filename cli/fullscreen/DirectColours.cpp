#include "cli/fullscreen/DirectColours.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace wardlock::cli {

namespace fs = std::filesystem;

namespace {

/// A compiled description, as term(5) documents it.
constexpr std::size_t headerSize = 12;
constexpr unsigned shortNumbers = 0432;
constexpr unsigned longNumbers = 01036;
constexpr std::size_t colourCount = 13;
constexpr std::size_t setForeground = 359;
constexpr std::size_t setBackground = 360;
constexpr std::size_t largestDescription = 32768;

unsigned shortAt(std::string_view bytes, std::size_t position) {
    return static_cast<unsigned char>(bytes[position]) |
           static_cast<unsigned>(static_cast<unsigned char>(bytes[position + 1])) << 8;
}

void setShort(std::string& bytes, std::size_t position, std::size_t number) {
    bytes[position] = static_cast<char>(number & 0xFF);
    bytes[position + 1] = static_cast<char>(number >> 8 & 0xFF);
}

/// Where the parts of a description are.
struct Parts {
    std::size_t numbers = 0;
    std::size_t offsets = 0;
    std::size_t strings = 0;
    std::size_t end = 0;
    std::size_t colours = 0;
};

std::optional<Parts> partsOf(std::string_view bytes) {
    if (bytes.size() < headerSize)
        return std::nullopt;
    const unsigned magic = shortAt(bytes, 0);
    if ((magic != shortNumbers && magic != longNumbers) || shortAt(bytes, 6) <= colourCount ||
        shortAt(bytes, 8) <= setBackground)
        return std::nullopt;
    const std::size_t width = magic == longNumbers ? 4 : 2;
    Parts parts;
    parts.numbers = headerSize + shortAt(bytes, 2) + shortAt(bytes, 4);
    parts.numbers += parts.numbers % 2;
    parts.offsets = parts.numbers + width * shortAt(bytes, 6);
    parts.strings = parts.offsets + std::size_t{2} * shortAt(bytes, 8);
    parts.end = parts.strings + shortAt(bytes, 10);
    if (parts.end > bytes.size())
        return std::nullopt;
    parts.colours = shortAt(bytes, parts.numbers + width * colourCount);
    return parts;
}

/// Returns a string of the description; none where it is absent.
std::optional<std::string> stringOf(std::string_view bytes, const Parts& parts, std::size_t index) {
    const std::size_t offset = shortAt(bytes, parts.offsets + 2 * index);
    const std::string_view table = bytes.substr(parts.strings, parts.end - parts.strings);
    const std::size_t end = offset < table.size() ? table.find('\0', offset) : std::string_view::npos;
    return end == std::string_view::npos ? std::nullopt
                                         : std::optional(std::string(table.substr(offset, end - offset)));
}

/// Returns "else, if the number is `slot`, the sequence of that colour" in the language of descriptions.
std::string choice(short slot, const char* kind, Rgb colour) {
    return "%p1%{" + std::to_string(slot) + "}%=%t\x1B[" + kind + ";2;" +
           std::to_string(colour >> 16 & 0xFF) + ';' + std::to_string(colour >> 8 & 0xFF) + ';' +
           std::to_string(colour & 0xFF) + "m%e";
}

} // namespace

std::optional<std::string> withDirectColours(std::string_view description) {
    const auto parts = partsOf(description);
    if (!parts || parts->colours < 256)
        return std::nullopt;
    auto foreground = stringOf(description, *parts, setForeground);
    auto background = stringOf(description, *parts, setBackground);
    if (!foreground || !background)
        return std::nullopt;
    std::string foregrounds = "%?";
    std::string backgrounds = "%?";
    for (const Ground ground : {Ground::Unknown, Ground::Dark, Ground::Light}) {
        const auto looks = looksOn(ground);
        for (std::size_t role = 0; role < looks.size(); ++role) {
            if (looks[role].foreground != ownColour)
                foregrounds += choice(directForeground(ground, role), "38", looks[role].foreground);
            if (looks[role].background != ownColour)
                backgrounds += choice(directBackground(ground, role), "48", looks[role].background);
        }
    }
    std::string result(description.substr(0, parts->end));
    setShort(result, parts->offsets + 2 * setForeground, result.size() - parts->strings);
    result += foregrounds + *foreground + "%;" + '\0';
    setShort(result, parts->offsets + 2 * setBackground, result.size() - parts->strings);
    result += backgrounds + *background + "%;" + '\0';
    setShort(result, 10, result.size() - parts->strings);
    // What follows begins at an even place.
    result.append(result.size() % 2, '\0');
    const std::size_t rest = parts->end + parts->end % 2;
    if (rest < description.size())
        result += description.substr(rest);
    return result.size() <= largestDescription ? std::optional(result) : std::nullopt;
}

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The folders that the library searches.
std::vector<fs::path> folders() {
    std::vector<fs::path> folders{variable("TERMINFO"), fs::path(variable("HOME")) / ".terminfo"};
    const std::string listed = variable("TERMINFO_DIRS");
    for (std::size_t begin = 0; begin < listed.size();) {
        const std::size_t end = std::min(listed.find(':', begin), listed.size());
        folders.emplace_back(listed.substr(begin, end - begin));
        begin = end + 1;
    }
    for (const char* folder : {"/etc/terminfo", "/lib/terminfo", "/usr/share/terminfo"})
        folders.emplace_back(folder);
    return folders;
}

std::string descriptionOf(const std::string& terminal) {
    if (terminal.empty() || terminal.find('/') != std::string::npos)
        return {};
    for (const fs::path& folder : folders()) {
        const fs::path path = folder / terminal.substr(0, 1) / terminal;
        std::error_code error;
        if (folder.empty() || !fs::is_regular_file(path, error) ||
            fs::file_size(path, error) > largestDescription)
            continue;
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    return {};
}

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : bytes) {
        text += digits[static_cast<unsigned char>(byte) >> 4];
        text += digits[static_cast<unsigned char>(byte) & 15];
    }
    return text;
}

} // namespace

DirectColours::DirectColours() {
    if (const char* value = std::getenv("TERMINFO"))
        before_ = value;
    const auto description = withDirectColours(descriptionOf(variable("TERM")));
    // The library takes a description as the value itself. No other thread reads the environment: the
    // terminal is opened before the first page. NOLINTNEXTLINE(concurrency-mt-unsafe)
    found_ = description && setenv("TERMINFO", ("hex:" + hexadecimal(*description)).c_str(), 1) == 0;
}

DirectColours::~DirectColours() {
    if (before_)
        setenv("TERMINFO", before_->c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    else
        unsetenv("TERMINFO"); // NOLINT(concurrency-mt-unsafe)
}

} // namespace wardlock::cli
