#pragma once

#include <clocale>

namespace wardlock::cli {

/// While it exists, characters of this thread have the encoding of the terminal; numbers and the rest stay as
/// they are. The terminal's library writes characters in the encoding of the locale.
class CharacterLocale {
public:
    explicit CharacterLocale(bool utf8);
    ~CharacterLocale();
    CharacterLocale(const CharacterLocale&) = delete;
    CharacterLocale& operator=(const CharacterLocale&) = delete;

private:
    locale_t before_;
    /// Null where the system has none: the locale is then as before.
    locale_t own_;
};

} // namespace wardlock::cli
