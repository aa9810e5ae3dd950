#include "platform/text/SearchFolding.h"

#include "platform/base/Utf8.h"
#include "platform/text/AccentFoldingTable.h"
#include "platform/text/CaseFolding.h"

#include <algorithm>
#include <span>

namespace platform {

namespace {

/// Accents that are characters of their own. The same ranges as in tools/generate-accent-folding: the vowel
/// signs of other scripts are letters to their readers.
bool isAccent(char32_t character) {
    return (character >= 0x300 && character <= 0x36F) || (character >= 0x1AB0 && character <= 0x1AFF) ||
           (character >= 0x1DC0 && character <= 0x1DFF) || (character >= 0x20D0 && character <= 0x20FF) ||
           (character >= 0xFE20 && character <= 0xFE2F);
}

/// Returns what is typed for a letter that Unicode does not take apart; empty for any other.
std::string_view typedFor(char32_t letter) {
    switch (letter) {
    case U'ß':
        return "ss";
    case U'æ':
        return "ae";
    case U'œ':
        return "oe";
    case U'þ':
        return "th";
    case U'ø':
        return "o";
    case U'đ':
    case U'ð':
        return "d";
    case U'ħ':
        return "h";
    case U'ı':
        return "i";
    case U'ł':
        return "l";
    case U'ŧ':
        return "t";
    default:
        return {};
    }
}

char32_t withoutAccents(char32_t letter) {
    const std::span table(accentFoldings, accentFoldingCount);
    const auto found = std::ranges::lower_bound(table, letter, {}, &AccentFolding::letter);
    return found != table.end() && found->letter == letter ? found->base : letter;
}

void appendFolded(char32_t character, std::string& folded) {
    if (isAccent(character))
        return;
    const char32_t letter = withoutAccents(simpleCaseFolding(character));
    if (const std::string_view typed = typedFor(letter); !typed.empty())
        folded += typed;
    else
        appendUtf8(letter, folded);
}

} // namespace

std::string searchFolded(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const char byte = text[i];
        const bool isAscii = static_cast<unsigned char>(byte) < 0x80;
        const DecodedCharacter decoded = isAscii ? DecodedCharacter{} : decodeUtf8(text, i);
        if (isAscii)
            folded.push_back(byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte);
        else if (decoded.length == 0)
            folded.push_back(byte);
        else
            appendFolded(decoded.character, folded);
        i += std::max<std::size_t>(decoded.length, 1);
    }
    return folded;
}

SearchWords::SearchWords(std::string_view typed) {
    constexpr std::string_view blanks = " \t\n\r\f\v";
    const std::string folded = searchFolded(typed);
    for (std::size_t start = 0; (start = folded.find_first_not_of(blanks, start)) != std::string::npos;) {
        const std::size_t end = std::min(folded.find_first_of(blanks, start), folded.size());
        words_.push_back(folded.substr(start, end - start));
        start = end;
    }
}

bool SearchWords::allIn(std::string_view folded) const {
    return std::ranges::all_of(
        words_, [folded](const auto& word) { return folded.find(word) != std::string_view::npos; });
}

bool SearchWords::anyIn(std::string_view folded) const {
    return std::ranges::any_of(
        words_, [folded](const auto& word) { return folded.find(word) != std::string_view::npos; });
}

} // namespace platform
