#pragma once

#include "cli/fullscreen/Key.h"

#include <optional>
#include <string>

namespace wardlock::cli {

/// Prepares keyboard and mouse of the terminal that was taken. Precondition: a CursesTerminal exists.
void setKeys();

/// Reads keys from the terminal that was taken. Characters and pasted text may come in pieces.
class KeyReader {
public:
    /// Returns the next key that has come; none when the rest has not come yet. Waits for nothing but the
    /// rest of a key's sequence, 50 ms at most.
    std::optional<Key> next();

private:
    /// Returns the key of a code of the library or byte; none where it is a part of one, or of no use.
    std::optional<Key> keyOf(int code);
    std::optional<Key> keyOfByte(int byte);
    std::optional<Key> afterEscape();
    void takePasted(int code);

    /// The first bytes of a character.
    std::string bytes_;
    std::string pasted_;
    bool pasting_ = false;
};

} // namespace wardlock::cli
