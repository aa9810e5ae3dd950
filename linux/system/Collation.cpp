#include "platform/text/Collation.h"

#include "platform/text/CaseFolding.h"

#include <clocale>
#include <cstring>

namespace platform {
namespace {

/// Returns the user's collation, apart from the process's locale, which the host may set or not. Null when
/// there is none. Lives as long as the process.
locale_t userCollation() {
    static const locale_t collation = newlocale(LC_COLLATE_MASK | LC_CTYPE_MASK, "", nullptr);
    return collation;
}

/// Appends the key of a text without a null character inside.
void appendTransformed(const char* text, std::string& keys) {
    char usual[1024];
    const std::size_t needed = strxfrm_l(usual, text, sizeof usual, userCollation());
    if (needed < sizeof usual) {
        keys.append(usual, needed);
        return;
    }
    const std::size_t start = keys.size();
    keys.resize(start + needed + 1);
    strxfrm_l(keys.data() + start, text, needed + 1, userCollation());
    keys.resize(start + needed);
}

} // namespace

void appendLocalizedKey(std::string_view text, std::string& keys) {
    if (!userCollation()) {
        appendCaseFolded(text, keys);
        return;
    }
    thread_local std::string folded;
    folded.clear();
    appendCaseFolded(text, folded);
    // The transformation ends at a null character: the text after it is transformed separately.
    for (std::size_t i = 0; i <= folded.size(); i += std::strlen(folded.c_str() + i) + 1) {
        if (i != 0)
            keys.push_back('\0');
        appendTransformed(folded.c_str() + i, keys);
    }
}

} // namespace platform
