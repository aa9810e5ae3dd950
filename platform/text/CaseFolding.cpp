#include "platform/text/CaseFolding.h"

#include "platform/base/Utf8.h"
#include "platform/text/CaseFoldingTable.h"

#include <algorithm>

namespace platform {

char32_t simpleCaseFolding(char32_t character) {
    const CaseFoldingRange* const end = caseFoldingRanges + caseFoldingRangeCount;
    const CaseFoldingRange* const found =
        std::partition_point(caseFoldingRanges, end,
                             [character](const CaseFoldingRange& range) { return range.last < character; });
    if (found == end || character < found->first || (character - found->first) % found->step != 0)
        return character;
    return static_cast<char32_t>(static_cast<std::int32_t>(character) + found->delta);
}

void appendCaseFolded(std::string_view text, std::string& folded) {
    for (std::size_t i = 0; i < text.size();) {
        const char byte = text[i];
        if (static_cast<unsigned char>(byte) < 0x80) {
            folded.push_back(byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte);
            ++i;
            continue;
        }
        const DecodedCharacter decoded = decodeUtf8(text, i);
        if (decoded.length == 0)
            folded.push_back(byte);
        else
            appendUtf8(simpleCaseFolding(decoded.character), folded);
        i += std::max<std::size_t>(decoded.length, 1);
    }
}

} // namespace platform
