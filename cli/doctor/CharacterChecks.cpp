// The checks of the characters that names have and the window's own font lacks.

#include "cli/doctor/CharacterChecks.h"

#include "cli/doctor/FontFolders.h"

#include <array>

namespace wardlock::cli {

namespace {

/// A girl: fonts without colours have faces, but no people.
constexpr char32_t emoji = 0x1f467;

struct Writing {
    const char* language;
    char32_t letter;
};

constexpr std::array writings{Writing{"Chinese", 0x6f22}, Writing{"Japanese", 0x3042},
                              Writing{"Korean", 0xd55c}};

} // namespace

CheckResult emojiIn(const std::vector<std::string>& folders) {
    CheckResult result("emoji", "Emoji", CheckResult::Need::Optional);
    const std::string file = fontFileFor(emoji, folders);
    result.facts["path"] = file.empty() ? Json() : Json(file);
    result.text = file;
    if (file.empty())
        result.fails("no installed font shows them; names have boxes in their place",
                     "Install the package fonts-noto-color-emoji.");
    return result;
}

CheckResult eastAsianLettersIn(const std::vector<std::string>& folders) {
    CheckResult result("eastAsianLetters", "East Asian letters", CheckResult::Need::Optional);
    std::string missing;
    for (const Writing& writing : writings) {
        const std::string file = fontFileFor(writing.letter, folders);
        result.facts[writing.language] = file.empty() ? Json() : Json(file);
        if (file.empty())
            missing += (missing.empty() ? "" : ", ") + std::string(writing.language);
        else
            result.text = file;
    }
    if (!missing.empty())
        result.fails("no installed font shows those of " + missing + "; names have boxes in their place",
                     "Install the package fonts-noto-cjk.");
    return result;
}

CheckResult checkEmoji() {
    return emojiIn(fontFolders());
}

CheckResult checkEastAsianLetters() {
    return eastAsianLettersIn(fontFolders());
}

} // namespace wardlock::cli
